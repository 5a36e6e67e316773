// The part of the hands that works with keys, the clipboard and menus.
#include "controls/combo.h"
#include "controls/desktop.h"
#include "controls/key.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"
#include "desktop/binders/combo_binder.h"
#include "desktop/qt_text.h"
#include "screen/script/spots.h"
#include "screen/x11/display_hands.h"
#include "screen/x11/key_symbols.h"
#include "script/program.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFileSystemModel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTreeView>

#include <algorithm>
#include <filesystem>

namespace zb::test {

using Kind = Control::Kind;

namespace {

constexpr xcb_keysym_t kEscapeSymbol = 0xff1b;
constexpr int kSteady = 3;

QString withoutMnemonic(const QString& text) {
    return QString(text).remove(QLatin1Char('&')).section(QLatin1Char('\t'), 0, 0);
}

QAction* actionNamed(const QMenu& menu, const char* caption) {
    for (QAction* action : menu.actions()) {
        if (withoutMnemonic(action->text()) == QLatin1String(caption))
            return action;
    }
    return nullptr;
}

// The entry of the menu bar, or the pop-up, under which an entry is found.
const Control& topOf(const MenuEntry& entry) {
    const Control* top = &entry;
    for (const auto* above = &entry; above != nullptr && above->menu() != nullptr;
         above = dynamic_cast<const MenuEntry*>(top))
        top = above->menu();
    return *top;
}

} // namespace

Hands::Refusal DisplayHands::type(Control& control, std::string_view text) {
    const bool typable =
        std::all_of(text.begin(), text.end(), [](char c) { return keyOfCharacter(c).has_value(); });
    if (!control.takesFocus() || !typable)
        return hands().type(control, text);
    if (Refusal refusal = control.focused() && hasKeyboard(control) ? Refusal() : focus(control);
        !refusal.empty())
        return refusal;
    for (const char character : text) {
        if (Refusal refusal = hands().whyNot(Target::whole(control)); !refusal.empty())
            return refusal;
        if (!hasKeyboard(control))
            return "the keyboard went elsewhere before all was typed into " + control.name();
        if (!display_.strike(symbolOf(character)))
            return std::string("the keyboard has no key for ") + character;
    }
    settle();
    return {};
}

// Over the stores the key is the field's alone; on a screen it presses the button as well.
Hands::Refusal DisplayHands::whyNoEnter(Control& control) {
    Button* button = control.window().defaultButton();
    if (button == nullptr || control.kind() != Kind::TextField ||
        static_cast<TextField&>(control).answersEnter())
        return {};
    return hands().whyNot(Target::whole(*button)).empty()
               ? "Enter presses the default button " + button->name()
               : Refusal();
}

Hands::Refusal DisplayHands::key(Control& control, KeyEvent key) {
    const auto symbol = symbolOf(key);
    if (!control.takesFocus())
        return hands().key(control, key);
    if (Refusal refusal =
            key.code == kKeyEnter && (key.shift & kAltKey) == 0 ? whyNoEnter(control) : Refusal();
        !refusal.empty())
        return refusal;
    const KeyCommand* command = program_.desktop().keys().find(control.window(), &control, key);
    if (command != nullptr && command->forKeyboard)
        return "the key runs a command of the keyboard";
    if (!symbol)
        return "no keyboard has a key with the code " + std::to_string(key.code);
    if (Refusal refusal = hasKeyboard(control) ? Refusal() : focus(control); !refusal.empty())
        return refusal;
    if (!display_.strike(symbol->symbol, symbol->shift))
        return "this keyboard has no key with the code " + std::to_string(key.code);
    settle();
    return {};
}

// The menu of a field that its right button opens.
Hands::Refusal DisplayHands::chooseInFieldMenu(Control& field, const char* entry) {
    Refusal refusal;
    // The menu opens under the button, and a hand that moves on would choose from it.
    display_.click(spotOf(screen_, Target::whole(field)), Display::Button::Right, kSteady, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QAction* action = menu == nullptr ? nullptr : actionNamed(*menu, entry);
        if (action != nullptr && action->isEnabled())
            refusal = clickInMenu(*menu, *action);
        else if (action != nullptr)
            display_.strike(kEscapeSymbol);
        else
            refusal = field.name() + " has no menu with " + entry;
    });
    return refusal;
}

Hands::Refusal DisplayHands::paste(Control& control, std::string_view text) {
    if (control.kind() != Kind::TextField)
        return hands().paste(control, text);
    return act(Target::whole(control), [&]() -> Refusal {
        if (!text.empty())
            display_.neighbour().copy(text);
        if (Refusal refusal = giveFocus(control); !refusal.empty())
            return refusal;
        if (Refusal refusal = chooseInFieldMenu(control, "Select All"); !refusal.empty())
            return refusal;
        return chooseInFieldMenu(control, text.empty() ? "Cut" : "Paste");
    });
}

Hands::Refusal DisplayHands::choose(Control& control, std::string_view text) {
    std::error_code error;
    if (control.kind() == Kind::FolderField && std::filesystem::is_directory(std::string(text), error))
        return act(Target::whole(control), [&] { return chooseFolder(control, text); });
    if (control.kind() != Kind::Combo)
        return hands().choose(control, text);
    settle();
    auto& box = dynamic_cast<StoreComboBox&>(binderOf(screen_, control).widget());
    int row = box.findText(toQt(text), Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (row < 0 && text.starts_with('#'))
        row = toQt(text.substr(1)).toInt() - 1;
    if (row < 0 || row >= box.count())
        return hands().choose(control, text);
    return act(Target::whole(control), [&] { return chooseRow(control, row); });
}

Hands::Refusal DisplayHands::chooseRow(Control& control, int row) {
    auto& box = dynamic_cast<StoreComboBox&>(binderOf(screen_, control).widget());
    QAbstractItemView* list = box.view();
    bool opened = false;
    display_.chooseInList({&box, box.rect().center()}, [&]() -> std::optional<Spot> {
        opened = list->isVisible();
        if (!opened)
            return std::nullopt;
        const QModelIndex index = box.model()->index(row, box.modelColumn());
        list->scrollTo(index);
        return Spot{list->viewport(), list->visualRect(index).center()};
    });
    return opened ? Refusal() : control.name() + " did not open its list";
}

Hands::Refusal DisplayHands::chooseFolder(Control& control, std::string_view path) {
    constexpr int kTries = 20; // the folders of the machine are read meanwhile
    auto& view = dynamic_cast<QTreeView&>(binderOf(screen_, control).widget());
    if (Refusal refusal = giveFocus(control); !refusal.empty())
        return refusal;
    for (int i = 0; i < kTries; ++i) {
        auto* folders = dynamic_cast<QFileSystemModel*>(view.model());
        if (folders == nullptr)
            return control.name() + " shows no folders";
        view.scrollTo(folders->index(toQt(path)));
        display_.steps().rest();
        const QRect place = view.visualRect(folders->index(toQt(path)));
        if (place.isEmpty() || !view.viewport()->rect().contains(place.center()))
            continue;
        display_.click({view.viewport(), {place.left() + 6, place.center().y()}});
        if (static_cast<FolderField&>(control).text() == path)
            return {};
    }
    return control.name() + " does not show the folder " + std::string(path);
}

Hands::Refusal DisplayHands::clickInMenu(QMenu& menu, QAction& action) {
    display_.click({&menu, menu.actionGeometry(&action).center()});
    return {};
}

// The bar shows the menus of the document in front. A command of the main window is reached there by the
// entry with its caption.
const MenuEntry& DisplayHands::counterpart(const MenuEntry& entry) const {
    const QList<QAction*> shown = screen_.mainWindow()->menuBar()->actions();
    const auto isInBar = [&](const MenuEntry& other) {
        const Control& top = topOf(other);
        return shown.contains(screen_.binderOf(top.window())->menus().actionOf(top));
    };
    if (entry.popup() != nullptr || isInBar(entry))
        return entry;
    for (const Window* window : program_.desktop().windows()) {
        for (const Control* control : window->controls()) {
            const auto* other = dynamic_cast<const MenuEntry*>(control);
            if (other != nullptr && other->popup() == nullptr && other->caption() == entry.caption() &&
                screen_.binderOf(*window) != nullptr && isInBar(*other))
                return *other;
        }
    }
    return entry;
}

Hands::Refusal DisplayHands::openMenuOf(const MenuEntry& entry) {
    MenuBinder& menus = screen_.binderOf(entry.window())->menus();
    if (entry.menu() == nullptr) {
        QMenuBar* bar = screen_.mainWindow()->menuBar();
        QAction* action = menus.actionOf(entry);
        const QRect place = bar->actionGeometry(action);
        if (!bar->actions().contains(action) || place.isEmpty())
            return entry.name() + " of " + entry.window().name() + " is not in the menu bar";
        display_.click({bar, place.center()});
        return {};
    }
    const auto* above = dynamic_cast<const MenuEntry*>(entry.menu());
    if (above != nullptr && !menus.menuOf(*above)->isVisible()) {
        if (Refusal refusal = openMenuOf(*above); !refusal.empty())
            return refusal;
    }
    const auto* popup = dynamic_cast<const PopupMenu*>(entry.menu());
    QMenu* menu = popup == nullptr ? menus.menuOf(*entry.menu()) : menuWithEntriesOf(screen_, *popup);
    QAction* action = menus.actionOf(entry);
    if (!menu->isVisible())
        return entry.menu()->name() + " is not open";
    if (!action->isEnabled()) {
        display_.strike(kEscapeSymbol);
        return entry.window().name() + "." + entry.name() + " is disabled";
    }
    return clickInMenu(*menu, *action);
}

Hands::Refusal DisplayHands::clickEntry(const Target& target) {
    const auto* entry = dynamic_cast<const MenuEntry*>(target.control);
    if (entry == nullptr)
        return hands().click(target);
    const MenuEntry& shown = counterpart(*entry);
    // What the program has said about the other entry meanwhile does not count. To open the menu activates
    // the window, and may enable the entry.
    Target way = target;
    way.control = shown.window().find(entry->popup() == nullptr ? topOf(shown).name() : shown.name());
    return act(way, [&]() -> Refusal {
        if (Refusal refusal = openMenuOf(shown); !refusal.empty())
            return refusal;
        // A menu that was only opened is shut again.
        for (int i = 0; i < 3 && entry->popup() == nullptr && QApplication::activePopupWidget() != nullptr;
             ++i)
            display_.strike(kEscapeSymbol);
        return {};
    });
}

} // namespace zb::test
