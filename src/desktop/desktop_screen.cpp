#include "desktop/desktop_screen.h"

#include "controls/desktop.h"
#include "controls/menu.h"
#include "controls/window.h"
#include "desktop/accessibility/accessible_tree.h"
#include "desktop/colors.h"
#include "desktop/dialog_places.h"
#include "desktop/forms/forms.h"
#include "desktop/frame_kind.h"
#include "desktop/message_boxes.h"
#include "desktop/qt_text.h"
#include "desktop/search_key.h"
#include "desktop/start/start_page.h"
#include "desktop/watched_work.h"
#include "desktop/workbench_place.h"
#include "shell/frm_main.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScopeGuard>
#include <QWindow>

#include <algorithm>

namespace zb {

DesktopScreen::DesktopScreen() = default;

DesktopScreen::~DesktopScreen() {
    detach();
}

void DesktopScreen::attach(Desktop& desktop, const std::string& layoutFile) {
    binding_ = std::make_unique<Binding>(desktop, pictures_);
    makeHintsReadable();
    timers_ = std::make_unique<QObject>();
    layout_.open(layoutFile);
    AccessibleTree::install();
    // The main window is first: the others are inside it or in front of it.
    if (Window* main = desktop.find("frmMain"))
        bind(*main);
    const auto windows = desktop.windows();
    for (Window* window : windows)
        bind(*window);
    showMenus();
    if (auto* main = dynamic_cast<frmMain*>(desktop.find("frmMain"));
        main != nullptr && documents_ != nullptr)
        startPage_ = std::make_unique<StartPage>(*main, *documents_, *binding_);
    followStart();
}

void DesktopScreen::detach() {
    for (auto& [window, frame] : frames_) {
        if (frame.shown)
            layout_.remember(frame.binder->form());
        frame.binder.reset();
    }
    timers_.reset();
    startPage_.reset();
    workbench_.reset();
    // Windows inside the main window are destroyed with it.
    frames_.clear();
    main_ = nullptr;
    documents_ = nullptr;
    menusOf_ = nullptr;
    front_ = nullptr;
    if (std::exchange(busyPointer_, false))
        QApplication::restoreOverrideCursor();
}

WindowBinder* DesktopScreen::binderOf(const Window& window) const {
    const auto found = frames_.find(&window);
    return found == frames_.end() ? nullptr : found->second.binder.get();
}

WindowBinder& DesktopScreen::bind(Window& window) {
    Frame& frame = frames_[&window];
    if (frame.binder)
        return *frame.binder;
    std::unique_ptr<QWidget> form = makeForm(window.name());
    QWidget& shown = *form;
    place(window, frame, std::move(form));
    if (kindOf(window) != FrameKind::Part)
        layout_.restore(shown);
    frame.binder = std::make_unique<WindowBinder>(window, shown, *binding_);
    finishForm(window, shown);
    if (main_ != nullptr)
        addSearchKey(window, shown, *main_, *binding_);
    if (frame.document == nullptr && kindOf(window) != FrameKind::Part)
        activation_.watch(shown);
    frame.binder->onChange = [this, &window] { follow(window); };
    follow(window);
    return *frame.binder;
}

void DesktopScreen::place(Window& window, Frame& frame, std::unique_ptr<QWidget> form) {
    switch (kindOf(window)) {
    case FrameKind::Main:
        main_ = qobject_cast<QMainWindow*>(form.get());
        documents_ = form->findChild<QMdiArea*>();
        break;
    case FrameKind::Document:
        if (documents_ == nullptr)
            break;
        frame.document = documents_->addSubWindow(form.release(), Qt::SubWindow);
        frame.document->setAttribute(Qt::WA_DeleteOnClose, false);
        frame.document->hide();
        return;
    case FrameKind::Part:
        if (main_ != nullptr)
            workbench_ = std::make_unique<WorkbenchPlace>(window, *form, *main_, *binding_, layout_,
                                                          [this] { returnFocus(); });
        break;
    case FrameKind::Dialog:
        // A window owned by the main window stays in front of it.
        form->setParent(main_, Qt::Dialog);
        break;
    }
    frame.form = std::move(form);
}

void DesktopScreen::follow(Window& window) {
    Frame& frame = frames_.at(&window);
    followStart();
    if (frame.shown != window.visible()) {
        frame.shown = window.visible();
        if (frame.shown)
            showFrame(window, frame);
        else
            hideFrame(window, frame);
        showMenus();
    }
    frame.binder->form().setCursor(window.pointer() == Pointer::Sizing ? Qt::SplitHCursor : Qt::ArrowCursor);
    showPointer();
}

void DesktopScreen::followStart() {
    const auto& windows = binding_->desktop.windows();
    const bool documentShown = std::any_of(windows.begin(), windows.end(), [](const Window* window) {
        return window->visible() && kindOf(*window) == FrameKind::Document;
    });
    if (startPage_)
        startPage_->follow(documentShown);
}

void DesktopScreen::showFrame(const Window& window, Frame& frame) {
    const Showing showing(*binding_);
    QWidget& form = frame.binder->form();
    if (frame.document != nullptr) {
        frame.document->setWindowTitle(form.windowTitle());
        frame.document->showMaximized();
    } else if (kindOf(window) == FrameKind::Part) {
        form.show();
    } else {
        const bool modal = binding_->desktop.modalWindow() == &window;
        form.setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
        if (kindOf(window) == FrameKind::Main)
            fitOnScreen(form);
        else if (QWidget* owner = ownerOf(form); owner != nullptr)
            placeDialog(window, form, *owner, *main_);
        form.show();
        if (kindOf(window) == FrameKind::Main)
            waitUntilSeen();
    }
    for (Control* control : window.controls()) {
        if (Binder* binder = frame.binder->binderOf(*control))
            binder->followFocus();
    }
}

// The window in which the user works when a dialog opens.
QWidget* DesktopScreen::ownerOf(const QWidget& dialog) const {
    QWidget* active = QApplication::activeWindow();
    const bool ours = std::any_of(frames_.begin(), frames_.end(), [&](const auto& entry) {
        return entry.second.binder && &entry.second.binder->form() == active;
    });
    return ours && active != &dialog ? active : main_.data();
}

// The next step may read a large project; the window is painted before it.
void DesktopScreen::waitUntilSeen() const {
    constexpr int kLongest = 500; // ms
    const QDeadlineTimer deadline(kLongest);
    while (!deadline.hasExpired() && !main_->windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, kLongest);
    main_->repaint();
}

void DesktopScreen::hideFrame(const Window& window, Frame& frame) {
    const Showing showing(*binding_);
    QWidget& form = frame.binder->form();
    layout_.remember(form);
    if (frame.document != nullptr)
        frame.document->hide();
    else
        form.hide();
    if (const auto loop = modalLoops_.find(&window); loop != modalLoops_.end())
        loop->second->quit();
    if (kindOf(window) == FrameKind::Main && onEnd)
        onEnd();
}

void DesktopScreen::showPointer() {
    const bool busy = waiting_ == 0 && std::any_of(frames_.begin(), frames_.end(), [](const auto& entry) {
                          return entry.first->pointer() == Pointer::Hourglass;
                      });
    if (busy == busyPointer_)
        return;
    busyPointer_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

// The menus of the document in front, or of the main window when there is none.
void DesktopScreen::showMenus() {
    if (main_ == nullptr)
        return;
    const Window* front = nullptr;
    for (const Window* window : binding_->desktop.windows()) {
        const bool shows = window->visible() && kindOf(*window) == FrameKind::Document;
        if (frames_.contains(window) && (shows || (front == nullptr && kindOf(*window) == FrameKind::Main)))
            front = window;
    }
    // A document without menus leaves those of the main window.
    const bool hasMenus = front != nullptr && !frames_.at(front).binder->menus().barActions().empty();
    if (!hasMenus)
        front = binding_->desktop.find("frmMain");
    if (front == menusOf_ || front == nullptr || !frames_.contains(front))
        return;
    menusOf_ = front;
    main_->menuBar()->clear();
    for (QAction* action : frames_.at(front).binder->menus().barActions())
        main_->menuBar()->addAction(action);
}

void DesktopScreen::bringToFront(Window& window) {
    bind(window);
    const Showing showing(*binding_);
    // A window that is in front already is brought there again only by the command that shows it.
    const bool shownAgain = front_ == &window || front_ == nullptr || !front_->visible();
    front_ = &window;
    if (QMdiSubWindow* document = frames_.at(&window).document; document != nullptr) {
        documents_->setActiveSubWindow(document);
        if (window.visible() && (shownAgain || document->isMinimized()) && !document->isMaximized())
            document->showMaximized();
        // The area remembers a focus of its own for each document.
        frames_.at(&window).binder->followFocus();
    }
    QWidget* shown = topLevelOf(window);
    if (window.visible() && shown != nullptr && shown->isVisible())
        activation_.bringToFront(*shown);
    raiseTopmost(window);
    showMenus();
}

void DesktopScreen::raiseTopmost(const Window& front) {
    if (binding_->desktop.modalWindow() != nullptr)
        return;
    for (const auto& [window, frame] : frames_) {
        if (window != &front && frame.shown && frame.binder && isTopmost(*window))
            frame.binder->form().raise();
    }
}

QWidget* DesktopScreen::topLevelOf(const Window& window) const {
    const auto found = frames_.find(&window);
    if (found == frames_.end())
        return nullptr;
    const bool inside = found->second.document != nullptr || kindOf(window) == FrameKind::Part;
    return inside ? main_.data() : &found->second.binder->form();
}

// The main window represents the document inside it.
void DesktopScreen::userTurnedTo(const QWidget& form) {
    const QWidget* modal = QApplication::activeModalWidget();
    if (binding_->showing > 0 || (modal != nullptr && modal != &form))
        return;
    const Window* active = binding_->desktop.activeWindow();
    if (active != nullptr && topLevelOf(*active) == &form)
        return;
    Window* front = nullptr;
    for (Window* window : binding_->desktop.windows()) {
        if (window->visible() && topLevelOf(*window) == &form)
            front = window;
    }
    if (front != nullptr && binding_->desktop.acceptsInput(*front))
        binding_->hands.activate(*front);
}

// After a box or a dialog the keyboard returns to the window that was active before.
void DesktopScreen::returnToActive() {
    const Window* active = binding_->desktop.activeWindow();
    QWidget* form = active == nullptr ? nullptr : topLevelOf(*active);
    if (form != nullptr && form->isVisible())
        activation_.bringToFront(*form);
}

void DesktopScreen::returnFocus() {
    const Window* active = binding_->desktop.activeWindow();
    const WindowBinder* binder = active == nullptr ? nullptr : binderOf(*active);
    if ((binder == nullptr || !binder->followFocus()) && documents_ != nullptr)
        documents_->setFocus();
}

QWidget* DesktopScreen::parentForBoxes() const {
    const Window* active = binding_->desktop.activeWindow();
    QWidget* form = active == nullptr ? nullptr : topLevelOf(*active);
    return form != nullptr && form->isVisible() ? form : main_.data();
}

template<typename Ask>
auto DesktopScreen::waitForUser(Ask ask) {
    ++waiting_;
    const auto over = qScopeGuard([this] {
        --waiting_;
        showPointer();
        returnToActive();
    });
    showPointer();
    return ask(parentForBoxes());
}

Answer DesktopScreen::showBox(const Box& box) {
    return waitForUser([&](QWidget* parent) { return askBox(box, parent); });
}

bool DesktopScreen::doLongWork(const std::string& what, const std::function<void(const Progress&)>& work) {
    WatchedWork watched(work);
    return watched.endsSoon() ? watched.take() : waitForUser([&](QWidget* parent) {
        watched.show(what, parent);
        return watched.take();
    });
}

std::string DesktopScreen::pickFile(const FileDialog& dialog) {
    if (std::string file = startPage_ ? startPage_->takeFile() : std::string(); !file.empty())
        return file;
    return waitForUser([&](QWidget* parent) { return askFile(dialog, parent); });
}

void DesktopScreen::runModal(Window& window) {
    bind(window);
    ++waiting_;
    showPointer();
    QEventLoop loop;
    modalLoops_[&window] = &loop;
    if (window.visible())
        loop.exec();
    modalLoops_.erase(&window);
    --waiting_;
    showPointer();
    returnToActive();
}

void DesktopScreen::openPopup(PopupMenu& menu) {
    bind(menu.window()).menus().open(menu);
}

void DesktopScreen::forget(Window& window) {
    const auto found = frames_.find(&window);
    if (found == frames_.end())
        return;
    if (kindOf(window) == FrameKind::Main)
        startPage_.reset();
    if (kindOf(window) == FrameKind::Part)
        workbench_.reset();
    found->second.binder->abandon();
    found->second.binder.reset();
    if (found->second.document != nullptr)
        delete found->second.document.data();
    if (menusOf_ == &window)
        menusOf_ = nullptr;
    if (front_ == &window)
        front_ = nullptr;
    frames_.erase(found);
}

void DesktopScreen::flush() {
    for (const auto& [window, frame] : frames_)
        frame.binder->flush();
}

} // namespace zb
