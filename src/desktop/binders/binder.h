#pragma once

#include "controls/control.h"
#include "controls/user_hands.h"

#include <QMenu>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <map>
#include <optional>
#include <vector>

class QKeyEvent;

namespace zb {

class Pictures;
class PopupMenu;

/// Shared by all binders of one desktop.
struct Binding {
    Binding(Desktop& desktopOfStores, const Pictures& picturesOfProgram)
        : desktop(desktopOfStores), hands(desktopOfStores), pictures(picturesOfProgram) {}

    Desktop& desktop;
    UserHands hands;
    const Pictures& pictures;
    /// Above 0 while stores are being shown: reports of widgets are then not actions of the user.
    int showing = 0;
    /// Keys go to the receiving widget without a change of the focus, for example while a script types a
    /// text.
    bool keysStay = false;
    /// What is being dragged within the program.
    std::optional<DragData> drag;
    /// The keyboard's drag: taken with the copy keys and dropped with the paste keys.
    std::optional<DragData> taken;
    /// Goes on with the last search.
    std::function<void()> searchAgain;
    /// Where a pop-up opens that was requested by a key; otherwise it opens at the pointer.
    std::optional<QPoint> popupPlace;
    /// The menus of all pop-ups.
    std::map<const PopupMenu*, QPointer<QMenu>> popups;
};

/// Marks a scope in which widgets follow the stores.
class Showing {
public:
    explicit Showing(Binding& binding) : binding_(binding) { ++binding_.showing; }
    ~Showing() { --binding_.showing; }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;

private:
    Binding& binding_;
};

/// Connects one control store to the widget of its name: the widget shows the store, and the actions of the
/// user on the widget are done to the store through UserHands. The store decides: what it refuses does not
/// remain in the widget.
class Binder : public QObject {
public:
    Binder(Control& control, QWidget& widget, Binding& binding);
    ~Binder() override;

    Control& control() const { return control_; }
    /// The inner widget that gets keys and focus.
    virtual QWidget& keyWidget() const { return *widget_; }
    QWidget& widget() const { return *widget_; }

    /// The store no longer exists; only the widget must be released.
    void abandon() { abandoned_ = true; }
    /// Shows at once what was deferred to the event loop.
    virtual void flush() {}
    /// Moves the keyboard focus of the window to the widget when the store has the focus.
    void followFocus();

protected:
    Binding& binding() const { return binding_; }
    UserHands& hands() const { return binding_.hands; }
    bool abandoned() const { return abandoned_; }
    bool isShowing() const { return binding_.showing > 0; }

    /// Shows the store again after a change; called with `Showing` set.
    virtual void show(Change change) = 0;
    /// Called by the constructors of binders when initialisation is complete.
    void start();

    bool eventFilter(QObject* watched, QEvent* event) override;
    /// True when the key was handled.
    virtual bool keyPressed(QKeyEvent& event);
    /// The key that the event means, with an effect in place of the one that the store knows for it.
    void pressKey(const QKeyEvent& event, KeyEvent key, const UserHands::KeyAction& effect = {});

private:
    /// A key that is held. What it means may change until it goes up, when Shift goes up before.
    struct KeyDown {
        quint32 scanCode;
        int code;
    };

    static bool isSameKey(const KeyDown& held, const QKeyEvent& event, int code);
    void ring(Change change);
    void showState();
    bool keyReleased(const QKeyEvent& event);
    bool leavesEnterToWindow() const;
    void pressDefaultButton();
    bool filterKeys(QEvent& event);

    Control& control_;
    QPointer<QWidget> widget_;
    Binding& binding_;
    std::vector<KeyDown> keysDown_;
    bool abandoned_ = false;
};

} // namespace zb
