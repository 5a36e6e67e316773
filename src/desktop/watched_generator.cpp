#include "desktop/watched_generator.h"

#include "desktop/keep_painting.h"
#include "desktop/qt_text.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace zb {

namespace {

constexpr std::chrono::milliseconds kMoment{250};
// The last lines are what is looked at; all of them are in the result.
constexpr int kMostLines = 2000;

} // namespace

/// Its close button and Escape stop the generator like its button.
class GeneratorDialog final : public QDialog {
public:
    explicit GeneratorDialog(QWidget* parent) : QDialog(parent) {
        setObjectName(QStringLiteral("generator"));
        setWindowTitle(QStringLiteral("Zeltobench"));
        setModal(true);
        auto* title = new QLabel(QStringLiteral("The generator is running"));
        output_.setObjectName(QStringLiteral("generatorOutput"));
        output_.setReadOnly(true);
        output_.setMaximumBlockCount(kMostLines);
        output_.setAccessibleName(QStringLiteral("Output of the generator"));
        auto* stop = buttons_.addButton(QStringLiteral("&Stop"), QDialogButtonBox::RejectRole);
        stop->setObjectName(QStringLiteral("generatorStop"));
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(title);
        layout->addWidget(&output_);
        layout->addWidget(&buttons_);
        constexpr QSize kSize(560, 320);
        resize(kSize);
        connect(&buttons_, &QDialogButtonBox::rejected, this, &GeneratorDialog::reject);
    }

    void reject() override {
        stopped_ = true;
        buttons_.setEnabled(false);
    }
    bool stopped() const { return stopped_; }

    void add(const std::string& lines) {
        if (!lines.empty())
            output_.appendPlainText(toQt(lines));
    }

private:
    QPlainTextEdit output_;
    QDialogButtonBox buttons_;
    bool stopped_ = false;
};

WatchedGenerator::WatchedGenerator(const SettingsStore& settings, std::filesystem::path programs,
                                   std::function<QWidget*()> parent)
    : generator_(
          settings, [this](const std::string& lines) { return goOn(lines); }, std::move(programs)),
      parent_(std::move(parent)) {}

WatchedGenerator::~WatchedGenerator() = default;

std::string WatchedGenerator::generate(const std::string& projectFile) {
    running_.start();
    output_.clear();
    std::string text = generator_.generate(projectFile);
    dialog_.reset();
    return text;
}

bool WatchedGenerator::goOn(const std::string& lines) {
    if (dialog_ != nullptr) {
        dialog_->add(lines);
    } else {
        output_ += (output_.empty() || lines.empty() ? "" : "\n") + lines;
        if (running_.hasExpired(kMoment.count())) {
            dialog_ = std::make_unique<GeneratorDialog>(parent_());
            dialog_->add(output_);
            dialog_->show();
        }
    }
    keepPainting(dialog_.get());
    return dialog_ == nullptr || !dialog_->stopped();
}

} // namespace zb
