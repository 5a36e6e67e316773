// Another program on the display: zeltobench-screen-neighbour. It reads a command a line and answers a line.
//   copy HEX    owns the clipboard with the text
//   offer HEX   shows a place to drag the text from, and tells it; then when the drag begins and when it ends
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QScreen>
#include <QSocketNotifier>
#include <QWidget>

#include <iostream>
#include <string>
#include <unistd.h>

namespace {

void answer(const std::string& line) {
    std::cout << line << std::endl;
}

class Handle final : public QWidget {
public:
    Handle() : QWidget(nullptr, Qt::Window | Qt::BypassWindowManagerHint) {
        constexpr int kSide = 40;
        const QPoint corner = screen()->geometry().bottomRight();
        setGeometry(corner.x() - kSide, corner.y() - kSide, kSide, kSide);
    }

    void offer(const QString& text) {
        text_ = text;
        offered_ = true;
        show();
        raise();
    }

private:
    void paintEvent(QPaintEvent* /*event*/) override {
        if (std::exchange(announced_, true))
            return;
        const QPoint place = mapToGlobal(rect().center());
        answer(std::to_string(place.x()) + ' ' + std::to_string(place.y()));
    }

    void hideEvent(QHideEvent* /*event*/) override { announced_ = false; }

    void mousePressEvent(QMouseEvent* /*event*/) override {}

    void mouseMoveEvent(QMouseEvent* event) override {
        if (!event->buttons().testFlag(Qt::LeftButton) || !std::exchange(offered_, false))
            return;
        auto* drag = new QDrag(this); // Qt deletes it
        auto* mime = new QMimeData;   // the drag owns it
        mime->setText(text_);
        drag->setMimeData(mime);
        answer("drag");
        drag->exec(Qt::CopyAction | Qt::MoveAction);
        hide();
        answer("over");
    }

    QString text_;
    bool offered_ = false;
    bool announced_ = false;
};

} // namespace

int main(int argc, char* argv[]) {
    QApplication qt(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Handle handle;
    std::string pending;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &qt, [&] {
        char buffer[4096];
        const ssize_t count = ::read(STDIN_FILENO, buffer, sizeof buffer);
        if (count <= 0) {
            QApplication::quit();
            return;
        }
        pending.append(buffer, static_cast<std::size_t>(count));
        for (std::size_t end = pending.find('\n'); end != std::string::npos; end = pending.find('\n')) {
            const std::string line = pending.substr(0, end);
            pending.erase(0, end + 1);
            const auto blank = line.find(' ');
            const QString text =
                QString::fromUtf8(QByteArray::fromHex(QByteArray::fromStdString(line.substr(blank + 1))));
            if (line.starts_with("copy")) {
                QGuiApplication::clipboard()->setText(text);
                answer("copied");
            } else {
                handle.offer(text);
            }
        }
    });
    return QApplication::exec();
}
