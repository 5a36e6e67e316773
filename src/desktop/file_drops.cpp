#include "desktop/file_drops.h"

#include "controls/desktop.h"
#include "controls/window.h"
#include "desktop/binders/binder.h"
#include "desktop/qt_text.h"
#include "desktop/start/start_page.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QSysInfo>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <array>
#include <string_view>
#include <utility>

namespace zb {

namespace {

struct Kind {
    const char* suffix;
    const char* window;
    const char* entry; // that opens such a file
};

constexpr const char* kRehearsal = "frmRehearsal";
constexpr const char* kRecording = "cmdChooseRecording";

constexpr std::array<Kind, 9> kKinds{{{"zbp", "frmMain", "mnuOpen"},
                                      {"sml", "frmSECSEditor", "mnuLIBSML"},
                                      {"smd", "frmSECSEditor", "mnuLIBSMD"},
                                      {"mdf", "frmSECSEditor", "mnuLIBMDF"},
                                      {"log", kRehearsal, kRecording},
                                      {"txt", kRehearsal, kRecording},
                                      {"hex", kRehearsal, kRecording},
                                      {"pcap", kRehearsal, kRecording},
                                      {"pcapng", kRehearsal, kRecording}}};
/// A log in SML may have the ending of a library, which it is anywhere else.
constexpr Kind kSmlLog{"sml", kRehearsal, kRecording};

/// Empty for what is not on this machine. Some file managers name the machine in its own paths.
QString pathOf(const QUrl& url) {
    const bool isHere =
        url.host().isEmpty() || url.host().compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
    return url.isLocalFile() && isHere ? url.path(QUrl::FullyDecoded) : QString();
}

const Kind* kindOfFile(const QString& path, bool fallsOnRehearsal = false) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (fallsOnRehearsal && suffix == QLatin1String(kSmlLog.suffix))
        return &kSmlLog;
    for (const Kind& kind : kKinds) {
        if (suffix == QLatin1String(kind.suffix))
            return &kind;
    }
    return nullptr;
}

/// Whether the place in the main window is within the document Rehearsal.
bool isOnRehearsal(const QWidget& main, const QPoint& place) {
    for (const QWidget* widget = main.childAt(place); widget != nullptr; widget = widget->parentWidget()) {
        if (widget->objectName() == QLatin1String(kRehearsal))
            return true;
    }
    return false;
}

} // namespace

std::string droppedFile(const QMimeData& data) {
    for (const QUrl& url : data.urls()) {
        const QString path = pathOf(url);
        if (kindOfFile(path) != nullptr && QFileInfo(path).isFile())
            return fromQt(path);
    }
    return {};
}

FileDrops::FileDrops(QWidget& mainWindow, StartPage& start, Binding& binding)
    : start_(start), binding_(binding) {
    mainWindow.setAcceptDrops(true);
    mainWindow.installEventFilter(this);
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
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
    const bool onRehearsal = isOnRehearsal(*static_cast<const QWidget*>(watched), drop.position().toPoint());
    if (type == QEvent::Drop)
        QTimer::singleShot(0, this, [this, path = std::move(path), onRehearsal] { open(path, onRehearsal); });
    return true;
}

void FileDrops::open(const std::string& path, bool onRehearsal) {
    const Kind* kind = kindOfFile(toQt(path), onRehearsal);
    if (kind->window == std::string_view(kRehearsal))
        start_.showRehearsal();
    const Window* window = binding_.desktop.find(kind->window);
    Control* entry = window == nullptr ? nullptr : window->find(kind->entry);
    if (entry == nullptr)
        return;
    if (!window->visible()) {
        // The rehearsal has said itself that it needs a project.
        if (kind->window != std::string_view(kRehearsal))
            binding_.desktop.post({"A library is opened in the editor: open a project first", {}});
        return;
    }
    start_.openBy(*entry, path);
}

} // namespace zb
