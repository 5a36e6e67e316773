#pragma once

#include "controls/control.h"
#include "controls/user_hands.h"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QKeyEvent;

namespace zb {

class Pictures;

/// What all binders of one desktop share.
struct Binding {
    Binding(Desktop& desktopOfStores, const Pictures& picturesOfProgram)
        : desktop(desktopOfStores), hands(desktopOfStores), pictures(picturesOfProgram) {}

    Desktop& desktop;
    UserHands hands;
    const Pictures& pictures;
    /// Above 0 while stores are being shown: what the widgets report then was not the user.
    int showing = 0;
    /// Keys go to the widget that gets them without a move of the focus, as while a script types a text.
    bool keysStay = false;
    /// What is being dragged within the program.
    std::optional<DragData> drag;
    /// What was taken up by keys, to be let fall by keys.
    std::optional<DragData> taken;
    /// Goes on with the last search.
    std::function<void()> searchAgain;
    /// Where a pop-up opens that a key has asked for; elsewhere it opens where the pointer is.
    std::optional<QPoint> popupPlace;
};

/// Marks a span in which widgets follow the stores.
class Showing {
public:
    explicit Showing(Binding& binding) : binding_(binding) { ++binding_.showing; }
    ~Showing() { --binding_.showing; }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;

private:
    Binding& binding_;
};

/// Ties one control store to the widget of its name: the widget shows the store, and what the user does to
/// the widget is done to the store by the user's hands. The store is the truth: what it refuses does not stay
/// on the widget.
class Binder : public QObject {
public:
    Binder(Control& control, QWidget& widget, Binding& binding);
    ~Binder() override;

    Control& control() const { return control_; }
    /// The widget within the bound one that gets keys and focus.
    virtual QWidget& keyWidget() const { return *widget_; }
    QWidget& widget() const { return *widget_; }

    /// The store is gone; only the widget is left to be let go of.
    void abandon() { abandoned_ = true; }
    /// Shows what has been put off until the event loop runs.
    virtual void flush() {}
    /// Moves the keyboard focus of the window to the widget when the store has it.
    void followFocus();

protected:
    Binding& binding() const { return binding_; }
    UserHands& hands() const { return binding_.hands; }
    bool abandoned() const { return abandoned_; }
    bool isShowing() const { return binding_.showing > 0; }

    /// Shows the store anew after a bell; called with `Showing` set.
    virtual void show(Change change) = 0;
    /// Called by the constructors of binders when all is in place.
    void start();

    bool eventFilter(QObject* watched, QEvent* event) override;
    /// True when the key was dealt with.
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
