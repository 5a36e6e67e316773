#include "desktop/watched_work.h"

#include "desktop/shown_text.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>

namespace zb {

namespace {

constexpr std::chrono::milliseconds kMoment{250};
constexpr std::chrono::milliseconds kBetweenLooks{40};
constexpr int kSteps = 1000;

/// Its close button and Escape cancel like its button. It closes when the work has ended.
class ProgressDialog final : public QDialog {
public:
    ProgressDialog(const std::string& what, LongWork& work, QWidget* parent) : QDialog(parent), work_(work) {
        setObjectName(QStringLiteral("progress"));
        setWindowTitle(QStringLiteral("Zeltobench"));
        label_.setTextFormat(Qt::PlainText);
        label_.setText(shownLine(what));
        bar_.setRange(0, kSteps);
        bar_.setAccessibleName(shownLine(what));
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&label_);
        layout->addWidget(&bar_);
        layout->addWidget(&buttons_);
        layout->setSizeConstraint(QLayout::SetFixedSize);
        constexpr int kBarWidth = 320;
        bar_.setMinimumWidth(kBarWidth);
        connect(&buttons_, &QDialogButtonBox::rejected, this, &ProgressDialog::reject);
    }

    void reject() override {
        work_.cancel();
        buttons_.setEnabled(false);
    }
    void look() { bar_.setValue(static_cast<int>(work_.done() * kSteps)); }

private:
    LongWork& work_;
    QLabel label_;
    QProgressBar bar_;
    QDialogButtonBox buttons_{QDialogButtonBox::Cancel};
};

} // namespace

WatchedWork::WatchedWork(const std::function<void(const Progress&)>& work)
    : end_(std::async(std::launch::async, [this, work] { work(Progress(work_)); })) {}

WatchedWork::~WatchedWork() {
    work_.cancel();
    if (end_.valid())
        end_.wait();
}

bool WatchedWork::endsSoon() const {
    return end_.wait_for(kMoment) == std::future_status::ready;
}

void WatchedWork::show(const std::string& what, QWidget* parent) {
    ProgressDialog dialog(what, work_, parent);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &dialog, [&] {
        dialog.look();
        if (end_.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
            dialog.accept();
    });
    timer.start(kBetweenLooks);
    dialog.exec();
}

bool WatchedWork::take() {
    try {
        end_.get();
        return true;
    } catch (const Cancelled&) {
        return false;
    }
}

} // namespace zb
