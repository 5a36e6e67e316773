#include "screen/x11/display_hands.h"

#include "controls/desktop.h"
#include "controls/list.h"
#include "controls/menu.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "script/program.h"

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QStyleHints>

#include <algorithm>

namespace zb::test {

using Kind = Control::Kind;

namespace {

constexpr xcb_keysym_t kControlSymbol = 0xffe3;
constexpr xcb_keysym_t kEscapeSymbol = 0xff1b;

// What moves farther than this begins a drag where one can begin.
int mostJitterOn(const Target& target) {
    const bool drags = (target.node != nullptr && static_cast<Tree*>(target.control)->onDragStart) ||
                       (target.row != nullptr && static_cast<List*>(target.control)->onDragStart) ||
                       target.control->onDragData;
    return drags ? QApplication::startDragDistance() - 1 : Display::kAnyJitter;
}

// The frame of a document that fills the main window is at the end of the menu bar: three buttons, the last
// of which closes it.
Spot closeButtonOf(const QMainWindow& main) {
    QWidget* frame = main.menuBar()->cornerWidget(Qt::TopRightCorner);
    return {frame, {frame->width() - frame->width() / 6, frame->height() / 2}};
}

// A place of a pane that belongs to none of the controls on it.
Spot bareSpotOf(QWidget& pane) {
    constexpr int kStep = 4;
    for (int y = kStep; y < pane.height(); y += kStep) {
        for (int x = pane.width() / 2; x < pane.width(); x += kStep) {
            if (pane.childAt(x, y) == nullptr)
                return {&pane, {x, y}};
        }
    }
    return {&pane, pane.rect().center()};
}

bool isShown(const Spot& spot) {
    return spot.widget->isVisible() && spot.widget->rect().contains(spot.place);
}

} // namespace

void DisplayHands::settle() {
    display_.steps().rest();
    screen_.flush();
}

void DisplayHands::closePopupBefore(const Target& target) {
    const PopupMenu* popup = program_.desktop().openPopup();
    const auto* entry = dynamic_cast<const MenuEntry*>(target.control);
    const bool isInPopup = entry != nullptr && entry->popup() != nullptr && entry->popup()->isOpen();
    if (popup != nullptr && !isInPopup)
        dismiss();
    // A combo's list that a letter has opened.
    else if (popup == nullptr && QApplication::activePopupWidget() != nullptr)
        display_.strike(kEscapeSymbol);
}

// Refused in advance, done by events, or not noticed by the window, which is a fault of the window.
Hands::Refusal DisplayHands::act(const Target& target, const std::function<Refusal()>& act) {
    settle();
    closePopupBefore(target);
    if (Refusal refusal = hands().whyNot(target); !refusal.empty())
        return refusal;
    const int begun = hands().begun();
    const std::string name = target.control->name();
    if (Refusal refusal = act(); !refusal.empty())
        return refusal;
    const bool deaf = target.control->kind() == Kind::Pane; // a picture may do nothing at all
    Refusal refusal = hands().begun() == begun && !deaf ? name + " took no notice" : hands().lastRefusal();
    settle();
    return refusal;
}

Hands::Refusal DisplayHands::click(const Target& target) {
    const Kind kind = target.control->kind();
    if (kind == Kind::MenuEntry || kind == Kind::PopupMenu)
        return clickEntry(target);
    return act(target, [&] { return clickTarget(target, mostJitterOn(target)); });
}

Hands::Refusal DisplayHands::clickTarget(const Target& target, int mostJitter) {
    Control& control = *target.control;
    switch (control.kind()) {
    case Kind::Combo:
    case Kind::FolderField:
        return giveFocus(control);
    case Kind::StatusBar:
    case Kind::Label:
        return control.name() + " does nothing when it is clicked";
    default:
        break;
    }
    const Spot spot = spotInSight(target);
    if (!isShown(spot))
        return control.name() + " does not show the place to click";
    display_.click(spot, Display::Button::Left, mostJitter);
    return {};
}

Hands::Refusal DisplayHands::controlClick(const Target& target) {
    if (target.row == nullptr && target.node == nullptr)
        return click(target);
    return act(target, [&]() -> Refusal {
        display_.clickWith(kControlSymbol, spotOf(screen_, target), mostJitterOn(target));
        return {};
    });
}

Hands::Refusal DisplayHands::rightClick(const Target& target) {
    return act(target, [&]() -> Refusal {
        const Spot spot = spotInSight(target);
        if (!isShown(spot))
            return target.control->name() + " does not show the place to click";
        if (target.control->kind() != Kind::TextField) {
            display_.click(spot, Display::Button::Right);
            return {};
        }
        // The menu opens under the button. That of every field is no part of the program and is shut again.
        DisplaySteps::Step shut;
        if (target.control->contextMenu() == nullptr)
            shut = [&] { display_.strike(kEscapeSymbol); };
        display_.click(spot, Display::Button::Right, 0, shut);
        return {};
    });
}

Hands::Refusal DisplayHands::doubleClick(const Target& target) {
    // Presses that are farther apart are two clicks to every program.
    const int mostJitter =
        std::min(mostJitterOn(target), QGuiApplication::styleHints()->mouseDoubleClickDistance());
    return act(target, [&]() -> Refusal {
        if (Refusal refusal = clickTarget(target, mostJitter); !refusal.empty())
            return refusal;
        display_.clickAgain();
        return {};
    });
}

Hands::Refusal DisplayHands::dismiss() {
    PopupMenu* popup = program_.desktop().openPopup();
    if (popup == nullptr)
        return "no pop-up is open";
    display_.strike(kEscapeSymbol);
    settle();
    return popup->isOpen() ? popup->name() + " stays open" : Refusal();
}

bool DisplayHands::hasKeyboard(Control& control) const {
    const QWidget& widget = binderOf(screen_, control).keyWidget();
    return control.focused() && QApplication::focusWidget() == &widget && widget.isActiveWindow();
}

// A window that is too small for the place grows.
Spot DisplayHands::spotInSight(const Target& target) {
    Spot spot = spotOf(screen_, target);
    if (target.control->kind() == Kind::Pane)
        spot = bareSpotOf(*spot.widget);
    if (isShown(spot))
        return spot;
    QWidget& window = *spot.widget->window();
    const QRect screen = window.screen()->availableGeometry();
    window.move(screen.topLeft());
    window.resize(window.width(), screen.height() - 80);
    display_.steps().rest();
    return spotOf(screen_, target);
}

// A click into a field is what brings it the keyboard. Elsewhere a click would do more, and a field that is
// too narrow for its text would have its caret amid it: there the keyboard's way is taken.
Hands::Refusal DisplayHands::giveFocus(Control& control) {
    if (hasKeyboard(control))
        return hands().focus(control);
    QWidget& widget = binderOf(screen_, control).keyWidget();
    const auto* line = qobject_cast<const QLineEdit*>(&widget);
    const bool fits =
        line != nullptr && line->fontMetrics().horizontalAdvance(line->text()) < line->width() - 24;
    if (control.kind() == Kind::TextField && fits) {
        display_.click(spotOf(screen_, Target::whole(control)));
        return {};
    }
    const int begun = hands().begun();
    if (!widget.isActiveWindow())
        display_.clickTitle(*widget.window());
    display_.steps().run({[&] { widget.setFocus(Qt::TabFocusReason); }});
    return hands().begun() == begun ? hands().focus(control) : Refusal();
}

Hands::Refusal DisplayHands::focus(Control& control) {
    if (!control.takesFocus())
        return hands().focus(control);
    return act(Target::whole(control), [&] { return giveFocus(control); });
}

Hands::Refusal DisplayHands::activate(Window& window) {
    settle();
    if (!window.visible() || !program_.desktop().acceptsInput(window))
        return hands().activate(window);
    QWidget& form = screen_.binderOf(window)->form();
    if (program_.desktop().openPopup() != nullptr)
        dismiss();
    display_.clickTitle(*form.window());
    settle();
    return program_.desktop().activeWindow() == &window ? Refusal()
                                                        : window.name() + " did not become active";
}

Hands::Refusal DisplayHands::close(Window& window) {
    settle();
    if (!window.visible())
        return hands().close(window);
    const int begun = hands().begun();
    QWidget& form = screen_.binderOf(window)->form();
    if (form.isWindow())
        display_.steps().run(
            {[&] { display_.server().askToClose(static_cast<xcb_window_t>(form.winId())); }});
    else
        display_.click(closeButtonOf(*screen_.mainWindow()));
    Refusal refusal = hands().begun() == begun ? window.name() + " took no notice" : hands().lastRefusal();
    settle();
    return refusal;
}

std::optional<Spot> DisplayHands::spotInSelection(Control& field) const {
    auto* line = qobject_cast<QLineEdit*>(&binderOf(screen_, field).widget());
    if (line == nullptr || !line->hasSelectedText())
        return std::nullopt;
    for (int x = 0; x < line->width(); ++x) {
        const QPoint place(x, line->height() / 2);
        const int position = line->cursorPositionAt(place);
        if (position > line->selectionStart() || position == line->selectionEnd())
            return Spot{line, place};
    }
    return std::nullopt;
}

Hands::Refusal DisplayHands::drag(const Target& from, const Target& to) {
    settle();
    closePopupBefore(from);
    if (Refusal refusal = hands().whyNot(from); !refusal.empty())
        return refusal;
    const int index = to.node == nullptr ? 0 : to.node->index();
    spotInSight(to); // a window that is too small for both has grown before the drag
    Spot start = spotInSight(from);
    if (from.control->kind() == Kind::TextField) {
        const auto selected = spotInSelection(*from.control);
        if (!selected)
            return from.control->name() + " has no selected text to drag";
        start = *selected;
    }
    Refusal refusal;
    const int begun = hands().begun();
    display_.drag(start, [&] {
        if (to.node != nullptr && static_cast<Tree*>(to.control)->nodes().at(index) != to.node) {
            refusal = to.control->name() + " has lost the target meanwhile";
            return start;
        }
        refusal = hands().whyNot(to);
        const Spot end = spotOf(screen_, to);
        if (refusal.empty() && !isShown(end))
            refusal = to.control->name() + " does not show the place to drop on";
        return end;
    });
    if (refusal.empty() && hands().begun() == begun)
        refusal = from.control->name() + " took no notice";
    settle();
    return refusal;
}

Hands::Refusal DisplayHands::drop(const DragData& data, const Target& to) {
    settle();
    closePopupBefore(to);
    if (Refusal refusal = hands().whyNot(to); !refusal.empty())
        return refusal;
    if (data.text.empty())
        return "no program lets an empty text be dragged";
    const Spot spot = spotInSight(to);
    if (!isShown(spot))
        return to.control->name() + " does not show the place to drop on";
    display_.dragFromNeighbour(data.text, spot);
    settle();
    return {};
}

} // namespace zb::test
