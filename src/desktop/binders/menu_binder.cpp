#include "desktop/binders/menu_binder.h"

#include "controls/menu.h"
#include "controls/window.h"
#include "desktop/qt_text.h"
#include "desktop/shown_text.h"

#include <QAction>
#include <QCursor>
#include <QMenu>

#include <algorithm>

namespace zb {

MenuBinder::MenuBinder(Window& window, QWidget& widget, Binding& binding)
    : window_(window), widget_(widget), binding_(binding) {
    for (Control* control : window_.controls()) {
        if (control->kind() == Control::Kind::PopupMenu)
            addPopup(static_cast<PopupMenu&>(*control));
    }
    for (Control* control : window_.controls()) {
        if (control->kind() == Control::Kind::MenuEntry)
            addEntry(static_cast<MenuEntry&>(*control));
    }
}

MenuBinder::~MenuBinder() {
    if (abandoned_)
        return;
    for (Control* control : window_.controls()) {
        if (actions_.contains(control) || menus_.contains(control))
            control->bell = nullptr;
    }
}

QAction* MenuBinder::actionOf(const Control& control) const {
    const auto found = actions_.find(&control);
    return found == actions_.end() ? nullptr : found->second;
}

QMenu* MenuBinder::menuOf(const Control& control) const {
    const auto found = menus_.find(&control);
    return found == menus_.end() ? nullptr : found->second;
}

bool MenuBinder::hasEntriesBelow(const MenuEntry& entry) const {
    const auto& all = window_.controls();
    return std::any_of(all.begin(), all.end(), [&](const Control* other) {
        return other->kind() == Control::Kind::MenuEntry &&
               static_cast<const MenuEntry*>(other)->menu() == &entry;
    });
}

void MenuBinder::addPopup(PopupMenu& popup) {
    auto* menu = new QMenu(&widget_);
    menu->setObjectName(widgetName(popup.name()));
    menus_[&popup] = menu;
    binding_.popups[&popup] = menu;
    // A click on an entry closes the menu before the click is reported; the store's pop-up stays open until
    // then.
    connect(menu, &QMenu::aboutToHide, this, [this, &popup] {
        QMetaObject::invokeMethod(
            this,
            [this, &popup] {
                if (popup.isOpen() && !menus_[&popup]->isVisible())
                    binding_.hands.dismiss();
            },
            Qt::QueuedConnection);
    });
    popup.bell = [this, &popup](Change) {
        if (!popup.isOpen())
            menus_[&popup]->hide();
    };
}

void MenuBinder::open(PopupMenu& popup) {
    QMenu* menu = menuOf(popup);
    if (menu == nullptr)
        return;
    if (popup.companion() != nullptr)
        appendEntriesOf(*popup.companion(), *menu);
    menu->popup(binding_.popupPlace.value_or(QCursor::pos()));
}

// The companion may belong to a window that is bound later than this one.
void MenuBinder::appendEntriesOf(const PopupMenu& companion, QMenu& menu) {
    const QMenu* more = binding_.popups[&companion];
    if (more == nullptr || more->isEmpty() || menu.actions().contains(more->actions().constFirst()))
        return;
    menu.addSeparator();
    menu.addActions(more->actions());
}

void MenuBinder::addEntry(MenuEntry& entry) {
    if (hasEntriesBelow(entry))
        addMenu(entry);
    else
        addCommand(entry);
    entry.bell = [this, &entry](Change) { showEntry(entry); };
    showEntry(entry);
}

void MenuBinder::addMenu(MenuEntry& entry) {
    auto* menu = new QMenu(&widget_);
    menu->setObjectName(widgetName(entry.name()));
    menu->setToolTipsVisible(true);
    menus_[&entry] = menu;
    insert(entry, *menu->menuAction());
    connect(menu, &QMenu::aboutToShow, this, [this, &entry] { binding_.hands.click(Target::whole(entry)); });
}

void MenuBinder::addCommand(MenuEntry& entry) {
    auto* action = new QAction(&widget_);
    action->setObjectName(widgetName(entry.name()));
    // The entries of the menu bar own the shortcuts; those of a pop-up only show them.
    if (!entry.shortcut().empty() && entry.popup() == nullptr)
        action->setShortcut(QKeySequence(toQt(entry.shortcut()), QKeySequence::PortableText));
    insert(entry, *action);
    connect(action, &QAction::triggered, this, [this, &entry] {
        // The next paste uses what was last copied within the program.
        const QKeySequence keys(toQt(entry.shortcut()), QKeySequence::PortableText);
        if (keys == QKeySequence(QKeySequence::Copy) || keys == QKeySequence(QKeySequence::Cut))
            binding_.taken.reset();
        const QPointer<MenuBinder> alive(this);
        binding_.hands.click(Target::whole(entry));
        if (alive)
            showEntry(entry);
    });
}

void MenuBinder::insert(MenuEntry& entry, QAction& action) {
    actions_[&entry] = &action;
    if (entry.menu() == nullptr) {
        bar_.push_back(&action);
        return;
    }
    // An entry comes after its parent, so the parent's menu already exists.
    QMenu* above = menuOf(*entry.menu());
    if (above == nullptr)
        return;
    if (entry.separatorAbove())
        above->addSeparator();
    above->addAction(&action);
}

void MenuBinder::showEntry(const MenuEntry& entry) {
    QAction* action = actionOf(entry);
    const bool showsKey = entry.popup() != nullptr && !entry.shortcut().empty();
    const QString caption = shownLine(entry.caption());
    action->setText(showsKey ? caption + QLatin1Char('\t') + toQt(entry.shortcut()) : caption);
    action->setEnabled(entry.enabled());
    action->setVisible(entry.visible());
    if (entry.checked())
        action->setCheckable(true);
    action->setChecked(entry.checked());
    action->setToolTip(toQt(entry.toolTip()));
}

} // namespace zb
