#include "screen/script/screen_hands.h"

#include "controls/bars.h"
#include "controls/combo.h"
#include "controls/desktop.h"
#include "controls/list.h"
#include "controls/menu.h"
#include "controls/text_field.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "desktop/binders/bar_binders.h"
#include "desktop/binders/combo_binder.h"
#include "desktop/models/list_model.h"
#include "desktop/models/node_tree_view.h"
#include "desktop/qt_text.h"
#include "screen/script/qt_keys.h"
#include "script/program.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QToolButton>
#include <QTreeView>

#include <filesystem>

namespace zb::test {

using Kind = Control::Kind;

void ScreenHands::settle() {
    QCoreApplication::sendPostedEvents();
    screen_.flush();
}

// Refused in advance, done by events, or not noticed by the window, which is a fault of the window.
template<typename Act>
Hands::Refusal ScreenHands::act(const Target& target, Act act) {
    settle();
    if (Refusal refusal = hands().approach(target); !refusal.empty())
        return refusal;
    settle();
    const int begun = hands().begun();
    act();
    Refusal refusal =
        hands().begun() == begun ? target.control->name() + " took no notice" : hands().lastRefusal();
    settle();
    return refusal;
}

void ScreenHands::press(const Spot& spot, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    const QPointF place = spot.place;
    QMouseEvent down(QEvent::MouseButtonPress, place, spot.widget->mapToGlobal(place), button, button,
                     modifiers);
    QCoreApplication::sendEvent(spot.widget, &down);
}

void ScreenHands::release(const Spot& spot, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    const QPointF place = spot.place;
    QMouseEvent up(QEvent::MouseButtonRelease, place, spot.widget->mapToGlobal(place), button, Qt::NoButton,
                   modifiers);
    QCoreApplication::sendEvent(spot.widget, &up);
}

void ScreenHands::clickSpot(const Spot& spot, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    const QPointer<QWidget> widget(spot.widget);
    press(spot, button, modifiers);
    if (widget)
        release(spot, button, modifiers);
}

void ScreenHands::giveFocus(Control& control) {
    const int begun = hands().begun();
    binderOf(screen_, control).keyWidget().setFocus(Qt::TabFocusReason);
    // The widget may have had the keyboard focus all the time, while another window of the program was
    // active.
    if (hands().begun() == begun)
        hands().focus(control);
}

Hands::Refusal ScreenHands::click(const Target& target) {
    const Kind kind = target.control->kind();
    if (kind == Kind::MenuEntry || kind == Kind::PopupMenu)
        return clickEntry(target);
    return act(target, [&] {
        const bool background =
            kind == Kind::StatusBar || (kind == Kind::Toolbar && target.button == nullptr);
        if (background || kind == Kind::Combo || kind == Kind::FolderField || kind == Kind::Label ||
            (kind == Kind::Pane && binderOf(screen_, *target.control).widget().layout() != nullptr)) {
            hands().click(target);
            return;
        }
        if (kind == Kind::TextField)
            giveFocus(*target.control);
        clickSpot(spotOf(screen_, target), Qt::LeftButton);
        if (kind == Kind::TextField)
            hands().focus(*target.control);
    });
}

Hands::Refusal ScreenHands::clickEntry(const Target& target) {
    MenuBinder& menus = screen_.binderOf(target.control->window())->menus();
    const auto* entry = dynamic_cast<const MenuEntry*>(target.control);
    if (entry == nullptr)
        return hands().click(target);
    return act(target, [&] {
        if (QMenu* menu = menus.menuOf(*entry)) {
            menu->popup({0, 0});
            menu->close();
            return;
        }
        QAction* action = menus.actionOf(*entry);
        QMenu* popup = entry->popup() == nullptr ? nullptr : menuWithEntriesOf(screen_, *entry->popup());
        if (popup == nullptr || !popup->isVisible()) {
            action->trigger();
            return;
        }
        popup->setActiveAction(action);
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(popup, &enter);
    });
}

Hands::Refusal ScreenHands::controlClick(const Target& target) {
    if (target.row == nullptr && target.node == nullptr)
        return click(target);
    return act(target, [&] { clickSpot(spotOf(screen_, target), Qt::LeftButton, Qt::ControlModifier); });
}

Hands::Refusal ScreenHands::rightClick(const Target& target) {
    const Kind kind = target.control->kind();
    if ((kind != Kind::Tree && kind != Kind::List) || target.column)
        return act(target, [&] { hands().rightClick(target); });
    return act(target, [&] { clickSpot(spotOf(screen_, target), Qt::RightButton); });
}

Hands::Refusal ScreenHands::doubleClick(const Target& target) {
    if (target.node == nullptr && target.row == nullptr)
        return click(target);
    const int index = target.node == nullptr ? 0 : target.node->index();
    if (Refusal refusal = click(target); !refusal.empty())
        return refusal;
    if (target.node != nullptr && static_cast<Tree*>(target.control)->nodes().at(index) != target.node)
        return {};
    if (target.row != nullptr && static_cast<List*>(target.control)->positionOf(target.row) == 0)
        return {};
    const Spot spot = spotOf(screen_, target);
    const QPointF place = spot.place;
    QMouseEvent twice(QEvent::MouseButtonDblClick, place, spot.widget->mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, {});
    QCoreApplication::sendEvent(spot.widget, &twice);
    settle();
    return {};
}

Hands::Refusal ScreenHands::dismiss() {
    PopupMenu* popup = program_.desktop().openPopup();
    if (popup == nullptr)
        return "no pop-up is open";
    screen_.binderOf(popup->window())->menus().menuOf(*popup)->close();
    settle();
    return popup->isOpen() ? popup->name() + " stays open" : Refusal();
}

Hands::Refusal ScreenHands::focus(Control& control) {
    if (!control.takesFocus())
        return hands().focus(control);
    return act(Target::whole(control), [&] { giveFocus(control); });
}

Hands::Refusal ScreenHands::activate(Window& window) {
    settle();
    screen_.binderOf(window)->form().activateWindow();
    Refusal refusal = hands().activate(window);
    settle();
    return refusal;
}

Hands::Refusal ScreenHands::close(Window& window) {
    settle();
    if (!window.visible())
        return hands().close(window);
    const int begun = hands().begun();
    screen_.binderOf(window)->form().close();
    Refusal refusal = hands().begun() == begun ? window.name() + " took no notice" : hands().lastRefusal();
    settle();
    return refusal;
}

void ScreenHands::sendKey(QWidget& widget, KeyEvent key) {
    const auto made = qtKeyOf(key);
    const QPointer<QWidget> alive(&widget);
    QKeyEvent down(QEvent::KeyPress, made->key, made->modifiers, made->text);
    QCoreApplication::sendEvent(&widget, &down);
    if (!alive)
        return;
    QKeyEvent up(QEvent::KeyRelease, made->key, made->modifiers, made->text);
    QCoreApplication::sendEvent(&widget, &up);
}

Hands::Refusal ScreenHands::type(Control& control, std::string_view text) {
    if (!control.takesFocus())
        return hands().type(control, text);
    for (const char character : text) {
        if (!keyOfCharacter(character))
            return hands().type(control, text);
    }
    if (Refusal refusal = focus(control); !refusal.empty())
        return refusal;
    screen_.binding().keysStay = true;
    const auto over = qScopeGuard([this] { screen_.binding().keysStay = false; });
    for (const char character : text) {
        if (Refusal refusal = hands().whyNot(Target::whole(control)); !refusal.empty())
            return refusal;
        sendKey(binderOf(screen_, control).keyWidget(), *keyOfCharacter(character));
    }
    settle();
    return {};
}

Hands::Refusal ScreenHands::key(Control& control, KeyEvent key) {
    if (!control.takesFocus() || !qtKeyOf(key))
        return hands().key(control, key);
    if (Refusal refusal = focus(control); !refusal.empty())
        return refusal;
    screen_.binding().keysStay = true;
    const auto over = qScopeGuard([this] { screen_.binding().keysStay = false; });
    sendKey(binderOf(screen_, control).keyWidget(), key);
    settle();
    return {};
}

Hands::Refusal ScreenHands::paste(Control& control, std::string_view text) {
    if (control.kind() != Kind::TextField ||
        dynamic_cast<QLineEdit*>(&binderOf(screen_, control).widget()) == nullptr)
        return hands().paste(control, text);
    if (Refusal refusal = focus(control); !refusal.empty())
        return refusal;
    QGuiApplication::clipboard()->setText(toQt(text));
    // The entries of the field's context menu.
    for (const char* entry : {"editSelectAll", "editPaste"})
        binderOf(screen_, control).keyWidget().findChild<QAction*>(QLatin1String(entry))->trigger();
    settle();
    return {};
}

Hands::Refusal ScreenHands::choose(Control& control, std::string_view text) {
    std::error_code error;
    if (control.kind() == Kind::FolderField && std::filesystem::is_directory(std::string(text), error)) {
        return act(Target::whole(control), [&] {
            const int begun = hands().begun();
            auto& view = dynamic_cast<QTreeView&>(binderOf(screen_, control).widget());
            if (auto* folders = dynamic_cast<QFileSystemModel*>(view.model()))
                view.setCurrentIndex(folders->index(toQt(text)));
            if (hands().begun() == begun || static_cast<FolderField&>(control).text() != text)
                hands().choose(control, text);
        });
    }
    if (control.kind() != Kind::Combo)
        return hands().choose(control, text);
    settle();
    auto& box = dynamic_cast<StoreComboBox&>(binderOf(screen_, control).widget());
    int row = box.findText(toQt(text), Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (row < 0 && text.starts_with('#'))
        row = toQt(text.substr(1)).toInt() - 1;
    if (row < 0 || row >= box.count())
        return hands().choose(control, text);
    return act(Target::whole(control), [&] { emit box.activated(row); });
}

void ScreenHands::dropOn(const DragData& data, const Target& to) {
    const Spot spot = spotOf(screen_, to);
    QMimeData mime;
    mime.setText(toQt(data.text));
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    // A drop passes over its place once by itself.
    QDragEnterEvent enter(spot.place, actions, &mime, Qt::LeftButton, {});
    QCoreApplication::sendEvent(spot.widget, &enter);
    QDropEvent fall(spot.place, actions, &mime, Qt::LeftButton, {});
    QCoreApplication::sendEvent(spot.widget, &fall);
    settle();
}

Hands::Refusal ScreenHands::drag(const Target& from, const Target& to) {
    const int index = to.node == nullptr ? 0 : to.node->index();
    const Kind kind = from.control->kind();
    Refusal refusal = act(from, [&] {
        if (kind == Kind::Tree || kind == Kind::List)
            press(spotOf(screen_, from), Qt::LeftButton);
        else if (kind == Kind::Pane)
            hands().mouseDown(from, UserHands::MouseButton::Left); // a press that becomes a drag is no click
        else
            giveFocus(*from.control);
    });
    if (!refusal.empty())
        return refusal;
    const auto data = hands().beginDrag(from);
    if (!data)
        return {};
    if (to.node != nullptr && static_cast<Tree*>(to.control)->nodes().at(index) != to.node)
        return to.control->name() + " has lost the target meanwhile";
    if (Refusal cannot = hands().whyNot(to); !cannot.empty())
        return cannot;
    screen_.binding().drag = data;
    dropOn(*data, to);
    screen_.binding().drag.reset();
    return {};
}

Hands::Refusal ScreenHands::drop(const DragData& data, const Target& to) {
    settle();
    if (Refusal refusal = hands().whyNot(to); !refusal.empty())
        return refusal;
    dropOn(data, to);
    return {};
}

} // namespace zb::test
