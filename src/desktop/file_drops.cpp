#include "desktop/file_drops.h"

#include "controls/desktop.h"
#include "controls/window.h"
#include "desktop/binders/binder.h"
#include "desktop/qt_text.h"
#include "desktop/start/start_page.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <array>
#include <utility>

namespace zb {

namespace {

struct Kind {
    const char* suffix;
    const char* window;
    const char* entry; // that opens such a file
};

constexpr std::array<Kind, 4> kKinds{{{"zbp", "frmMain", "mnuOpen"},
                                      {"sml", "frmSECSEditor", "mnuLIBSML"},
                                      {"smd", "frmSECSEditor", "mnuLIBSMD"},
                                      {"mdf", "frmSECSEditor", "mnuLIBMDF"}}};

const Kind* kindOfFile(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    for (const Kind& kind : kKinds) {
        if (suffix == QLatin1String(kind.suffix))
            return &kind;
    }
    return nullptr;
}

} // namespace

std::string droppedFile(const QMimeData& data) {
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile() && kindOfFile(url.toLocalFile()) != nullptr)
            return fromQt(url.toLocalFile());
    }
    return {};
}

FileDrops::FileDrops(QWidget& mainWindow, StartPage& start, Binding& binding)
    : start_(start), binding_(binding) {
    mainWindow.setAcceptDrops(true);
    mainWindow.installEventFilter(this);
}

bool FileDrops::eventFilter(QObject* /*watched*/, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return false;
    auto& drop = static_cast<QDropEvent&>(*event);
    std::string path = droppedFile(*drop.mimeData());
    if (path.empty() || binding_.drag || binding_.desktop.modalWindow() != nullptr)
        return false;
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    // The other program waits for the end of the drop; a question must not keep it waiting.
    if (type == QEvent::Drop)
        QTimer::singleShot(0, this, [this, path = std::move(path)] { open(path); });
    return true;
}

void FileDrops::open(const std::string& path) {
    const Kind* kind = kindOfFile(toQt(path));
    const Window* window = binding_.desktop.find(kind->window);
    Control* entry = window == nullptr ? nullptr : window->find(kind->entry);
    if (entry == nullptr)
        return;
    if (!window->visible()) {
        binding_.desktop.post({"A library is opened in the editor: open a project first", {}});
        return;
    }
    start_.openBy(*entry, path);
}

} // namespace zb
