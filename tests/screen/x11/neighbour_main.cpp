// Another program on the display: zeltobench-screen-neighbour. It reads a command a line and answers in
// lines.
//   copy HEX    owns the clipboard with the text: "copied"
//   select HEX  owns the selection, which the middle button pastes: "selected"
//   picture     as offer, but of a picture without a text
//   files HEX   as offer, but of the files with these paths, one a line, as a file manager offers them
//   offer HEX   shows a place to drag the text from: its coordinates; then "drag" when the drag begins,
//   "answered"
//               each time the program under the pointer has accepted or refused it, and "over" when it ends
#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QImage>
#include <QMimeData>
#include <QMouseEvent>
#include <QScreen>
#include <QSocketNotifier>
#include <QUrl>
#include <QWidget>

#include <xcb/xcb.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

void answer(const std::string& line) {
    std::cout << line << std::endl;
}

/// Reports the answers of other programs to a drag of this one. A button that is released after the report
/// comes to the drag after the answer.
class DragAnswers final : public QAbstractNativeEventFilter {
public:
    explicit DragAnswers(xcb_connection_t* connection) {
        constexpr std::string_view kName = "XdndStatus";
        const auto asked = xcb_intern_atom(connection, 0, kName.size(), kName.data());
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(connection, asked, nullptr), &std::free);
        if (reply != nullptr)
            status_ = reply->atom;
    }

private:
    bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
        const auto& event = *static_cast<const xcb_client_message_event_t*>(message);
        if ((event.response_type & 0x7f) == XCB_CLIENT_MESSAGE && event.type == status_)
            answer("answered");
        return false;
    }

    xcb_atom_t status_ = XCB_ATOM_NONE;
};

/// It is so large that a drag begins within it, where no other program answers.
class Handle final : public QWidget {
public:
    Handle() : QWidget(nullptr, Qt::Window | Qt::BypassWindowManagerHint) {
        constexpr int kSide = 80;
        const QPoint corner = screen()->geometry().bottomRight();
        setGeometry(corner.x() - kSide, corner.y() - kSide, kSide, kSide);
    }

    enum class Offer { Text, Picture, Files };

    void offer(const QString& text, Offer what) {
        text_ = text;
        what_ = what;
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
        auto* drag = new QDrag(this); // NOLINT(cppcoreguidelines-owning-memory): Qt deletes it
        auto mime = std::make_unique<QMimeData>();
        fill(*mime);
        drag->setMimeData(mime.release());
        answer("drag");
        drag->exec(Qt::CopyAction | Qt::MoveAction);
        hide();
        answer("over");
    }

    void fill(QMimeData& mime) const {
        switch (what_) {
        case Offer::Text:
            mime.setText(text_);
            break;
        case Offer::Picture:
            mime.setImageData(QImage(4, 4, QImage::Format_RGB32));
            break;
        case Offer::Files: {
            QList<QUrl> urls;
            for (const QString& path : text_.split('\n'))
                urls.append(QUrl::fromLocalFile(path));
            mime.setUrls(urls);
            break;
        }
        }
    }

    QString text_;
    Offer what_ = Offer::Text;
    bool offered_ = false;
    bool announced_ = false;
};

} // namespace

int main(int argc, char* argv[]) {
    QApplication qt(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Handle handle;
    DragAnswers answers(qt.nativeInterface<QNativeInterface::QX11Application>()->connection());
    qt.installNativeEventFilter(&answers);
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
            } else if (line.starts_with("select")) {
                QGuiApplication::clipboard()->setText(text, QClipboard::Selection);
                answer("selected");
            } else {
                handle.offer(text, line.starts_with("picture") ? Handle::Offer::Picture
                                   : line.starts_with("files") ? Handle::Offer::Files
                                                               : Handle::Offer::Text);
            }
        }
    });
    return QApplication::exec();
}
