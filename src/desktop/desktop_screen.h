#pragma once

#include "controls/screen.h"
#include "desktop/activation.h"
#include "desktop/layout_memory.h"
#include "desktop/pictures/pictures.h"
#include "desktop/plain_labels.h"
#include "desktop/system_clipboard.h"
#include "desktop/window_binder.h"

#include <QMainWindow>
#include <QMdiSubWindow>
#include <QObject>
#include <QPointer>

#include <map>
#include <memory>
#include <string>

class QEventLoop;

class QMdiArea;

namespace zb {

class StartPage;
class WorkbenchPlace;

/// The Qt windows of one program. Dialogs are in front of the main window, document windows inside it; the
/// menu bar shows the menus of the document in front.
class DesktopScreen : public QObject, public Screen {
public:
    DesktopScreen();
    ~DesktopScreen() override;

    /// Creates the windows of a program. `layoutFile` stores sizes and positions; empty stores none.
    void attach(Desktop& desktop, const std::string& layoutFile = {});
    /// Releases the windows and their stores.
    void detach();
    /// Null for a window that has not been shown yet, when it was created after `attach`.
    WindowBinder* binderOf(const Window& window) const;
    const Pictures& pictures() const { return pictures_; }
    Binding& binding() const { return *binding_; }
    QMainWindow* mainWindow() const { return main_; }
    /// Null before `attach`.
    StartPage* startPage() const { return startPage_.get(); }
    /// Shows at once what was deferred to the event loop.
    void flush();

    /// The main window has been hidden: the program has ended.
    std::function<void()> onEnd;

    Answer showBox(const Box& box) override;
    std::string pickFile(const FileDialog& dialog) override;
    void runModal(Window& window) override;
    bool doLongWork(const std::string& what, const std::function<void(const Progress&)>& work) override;
    void bringToFront(Window& window) override;
    void openPopup(PopupMenu& menu) override;
    void forget(Window& window) override;
    bool showSystemInformation() override;
    void putOnClipboard(const SharedClipboard& contents) override { putOnSystemClipboard(contents); }
    SharedClipboard clipboard() override { return systemClipboard(); }
    bool openFile(const std::string& path) override;
    void callLater(std::chrono::milliseconds delay, std::function<void()> function) override;

private:
    struct Frame {
        std::unique_ptr<QWidget> form; // the sub window is the owner of documents
        QPointer<QMdiSubWindow> document;
        std::unique_ptr<WindowBinder> binder;
        bool shown = false;
    };

    WindowBinder& bind(Window& window);
    template<typename Ask>
    auto waitForUser(Ask ask);
    void place(Window& window, Frame& frame, std::unique_ptr<QWidget> form);
    void follow(Window& window);
    void followStart();
    void showFrame(const Window& window, Frame& frame);
    void hideFrame(const Window& window, Frame& frame);
    void waitUntilSeen() const;
    void showPointer();
    void showMenus();
    QWidget* ownerOf(const QWidget& dialog) const;
    void raiseTopmost(const Window& front);
    void userTurnedTo(const QWidget& form);
    void returnToActive();
    void returnFocus();
    QWidget* topLevelOf(const Window& window) const;
    QWidget* parentForBoxes() const;

    PlainLabels plainLabels_;
    Pictures pictures_;
    LayoutMemory layout_;
    std::unique_ptr<Binding> binding_;
    Activation activation_{[this](QWidget& form) { userTurnedTo(form); }};
    std::map<const Window*, Frame> frames_;
    std::map<const Window*, QEventLoop*> modalLoops_;
    QPointer<QMainWindow> main_;
    QMdiArea* documents_ = nullptr;
    std::unique_ptr<StartPage> startPage_;
    std::unique_ptr<WorkbenchPlace> workbench_;
    std::unique_ptr<QObject> timers_; // those of callLater
    const Window* menusOf_ = nullptr;
    const Window* front_ = nullptr; // brought to the front last
    bool busyPointer_ = false;
    int waiting_ = 0; // boxes and dialogs that wait for the user, whatever else runs
};

} // namespace zb
