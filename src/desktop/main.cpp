#include "desktop/desktop_screen.h"
#include "desktop/guarded_application.h"
#include "desktop/program_folders.h"
#include "desktop/qt_text.h"
#include "desktop/watched_generator.h"
#include "platform/end_requests.h"
#include "platform/exit_hook.h"
#include "platform/file_layer.h"
#include "platform/process_signals.h"
#include "platform/program_folder.h"
#include "platform/settings.h"
#include "platform/standard_descriptors.h"
#include "platform/user_folders.h"
#include "shell/application.h"

#include <QApplication>
#include <QEvent>
#include <QProcess>
#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <utility>

namespace {

// One text, as it was after the program's name.
std::string commandLine() {
    return zb::fromQt(QApplication::arguments().mid(1).join(QLatin1Char(' ')));
}

/// `--merge BASE OURS THEIRS OUT`: OUT is opened, and the conflicts of the merge are shown.
bool isMerge() {
    constexpr qsizetype kWords = 6; // with the program's name
    const QStringList words = QApplication::arguments();
    return words.size() == kWords && words[1] == QLatin1String("--merge");
}

void startMerge(zb::Application& application) {
    const QStringList words = QApplication::arguments();
    application.start(zb::fromQt(words[5]));
    application.comparisons.solveMerge(zb::fromQt(words[2]), zb::fromQt(words[3]), zb::fromQt(words[4]));
}

/// The session asks the program to keep its work, and then to end. The work is kept by then, so that no
/// question holds the session up.
class SessionEnd final : public QObject {
public:
    explicit SessionEnd(std::function<void()> keep) : keep_(std::move(keep)) {}

    void begin() {
        hasBegun_ = true;
        keep_();
    }

private:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (!hasBegun_ || event->type() != QEvent::Quit)
            return false;
        keep_();
        QCoreApplication::exit();
        return true;
    }

    std::function<void()> keep_;
    bool hasBegun_ = false;
};

} // namespace

int main(int argc, char* argv[]) {
    zb::fillStandardDescriptors();
    zb::letLargeWritesFail();
    zb::GuardedApplication qt(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zeltobench"));
    // The name of the desktop menu entry, whose icon is used for the windows.
    QGuiApplication::setDesktopFileName(QStringLiteral("com.halvernworks.zeltobench"));
    QApplication::setQuitOnLastWindowClosed(false);

    zb::DesktopScreen screen;
    QApplication::setWindowIcon(screen.pictures().icon("zeltobench"));
    zb::SettingsStore settings(zb::settingsFolder());
    zb::SystemFileLayer files;
    zb::WatchedGenerator generator(settings, zb::programFolder(), [&screen] { return screen.mainWindow(); });
    zb::Application application(screen, settings, files, generator, zb::programFolders());
    qt.onOutOfMemory = [&application] { application.projects.reportOutOfMemory(); };
    screen.onEnd = [] { QApplication::quit(); };
    screen.attach(application.desktop, (zb::settingsFolder() / "windows.ini").string());

    zb::EndRequests requests;
    const QSocketNotifier requested(requests.descriptor(), QSocketNotifier::Read);
    QObject::connect(&requested, &QSocketNotifier::activated, &qt, [&] {
        application.work.keepNow();
        requests.obey();
    });
    // Qt ends the program so when the display is gone.
    const zb::ExitHook displayLost([&application] { application.work.keepNow(); });
    SessionEnd sessionEnd([&application] { application.work.keepNow(); });
    qt.installEventFilter(&sessionEnd);
    QObject::connect(
        &qt, &QGuiApplication::commitDataRequest, &qt, [&sessionEnd] { sessionEnd.begin(); },
        Qt::DirectConnection);

    QObject::connect(&qt, &QGuiApplication::applicationStateChanged, &qt, [&](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive && QApplication::activeModalWidget() == nullptr)
            application.versions.userReturned();
    });
    application.versions.onOpenBeside = [](const std::string& path) {
        return QProcess::startDetached(QCoreApplication::applicationFilePath(), {zb::toQt(path)});
    };

    // Boxes at the start need the event loop.
    QTimer::singleShot(0, &qt, [&] {
        const zb::BusyPointer busy(application.frmMain);
        if (isMerge())
            startMerge(application);
        else
            application.start(commandLine());
    });
    int result = QApplication::exec();
    // Git takes the status for whether the file is merged.
    if (result == 0 && isMerge() && application.comparisons.hasConflicts())
        result = 1;
    qt.onOutOfMemory = nullptr;
    screen.detach();
    return result;
}
