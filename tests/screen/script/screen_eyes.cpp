#include "screen/script/screen_eyes.h"

#include "controls/bars.h"
#include "controls/list.h"
#include "controls/menu.h"
#include "controls/window.h"
#include "desktop/binders/bar_binders.h"
#include "desktop/binders/combo_binder.h"
#include "desktop/models/list_model.h"
#include "desktop/models/node_tree_model.h"
#include "desktop/qt_text.h"
#include "screen/script/spots.h"
#include "script/address.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QFont>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QTreeView>

namespace zb::test {

using Value = std::optional<PropertyValue>;
using Kind = Control::Kind;

namespace {

PropertyValue text(const QString& shown) {
    return fromQt(shown);
}
PropertyValue number(int shown) {
    return static_cast<long long>(shown);
}

bool isEnabledByItself(const QWidget& widget) {
    return !widget.testAttribute(Qt::WA_ForceDisabled);
}

Value shownByKind(const QWidget& widget, std::string_view name) {
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget); line != nullptr && name == "text")
        return text(line->text());
    if (const auto* label = qobject_cast<const QLabel*>(&widget); label != nullptr && name == "text")
        return text(label->text());
    if (const auto* frame = qobject_cast<const QGroupBox*>(&widget); frame != nullptr && name == "caption")
        return text(frame->title());
    if (const auto* box = dynamic_cast<const StoreComboBox*>(&widget)) {
        if (name == "text")
            return text(box->shownText());
        return name == "count" ? Value(number(box->count())) : std::nullopt;
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        button != nullptr && name == "caption")
        return text(button->text());
    return std::nullopt;
}

void addLines(const QAbstractItemModel& model, const QModelIndex& below, int level,
              std::vector<std::string>& lines) {
    for (int row = 0; row < model.rowCount(below); ++row) {
        const QModelIndex node = model.index(row, 0, below);
        lines.push_back(std::string(static_cast<std::size_t>(2 * level), ' ') +
                        fromQt(node.data().toString()));
        addLines(model, node, level + 1, lines);
    }
}

std::string joinedRow(const QAbstractItemModel& model, int row, std::size_t cells) {
    std::string joined;
    for (std::size_t column = 0; column < cells; ++column) {
        joined += column == 0 ? "" : " | ";
        joined += fromQt(model.index(row, static_cast<int>(column)).data().toString());
    }
    return joined;
}

// The title of the main window also contains that of its document, and what is open in it.
QString captionIn(const QString& title, const std::string& note) {
    const QString front = note.empty() ? QString() : toQt(note) + QStringLiteral(" - ");
    const QString own = title.section(QStringLiteral(" - ["), 0, 0);
    return own.startsWith(front) ? own.mid(front.size()) : own;
}

} // namespace

void ScreenEyes::settle() {
    QCoreApplication::sendPostedEvents();
    screen_.flush();
}

Binder* ScreenEyes::binderOf(const Place& place) const {
    const WindowBinder* window = screen_.binderOf(*place.window);
    return window == nullptr || place.target.control == nullptr ? nullptr
                                                                : window->binderOf(*place.target.control);
}

Eyes::Properties ScreenEyes::properties(const Place& place) {
    settle();
    Properties all = stores_.properties(place);
    for (auto& [name, value] : all) {
        if (const Value seen = shown(place, name))
            value = *seen;
    }
    return all;
}

Value ScreenEyes::property(const Place& place, std::string_view name) {
    settle();
    Value value = stores_.property(place, name);
    if (!value)
        return value;
    const Value seen = shown(place, name);
    return seen ? seen : value;
}

Value ScreenEyes::shown(const Place& place, std::string_view name) {
    switch (place.kind) {
    case Place::Kind::Window:
        return shownByWindow(place, name);
    case Place::Kind::Control:
        return shownByControl(place, name);
    case Place::Kind::Node:
        return shownByNode(place, name);
    case Place::Kind::Row:
        return shownByRow(place, name);
    case Place::Kind::ToolbarButton:
        return shownByButton(place, name);
    case Place::Kind::StatusPanel:
        return shownByPanel(place, name);
    case Place::Kind::Column: {
        const auto* list = dynamic_cast<const QTreeView*>(&binderOf(place)->widget());
        const int section = static_cast<int>(*place.target.column);
        if (list != nullptr && name == "text")
            return text(list->model()->headerData(section, Qt::Horizontal).toString());
        return std::nullopt;
    }
    case Place::Kind::Program:
        break;
    }
    return std::nullopt;
}

Value ScreenEyes::shownByWindow(const Place& place, std::string_view name) {
    const WindowBinder* window = screen_.binderOf(*place.window);
    if (window == nullptr)
        return std::nullopt;
    if (name == "caption")
        return text(captionIn(window->form().windowTitle(), window->window().titleNote()));
    const QWidget* frame = &window->form();
    if (const auto* document = qobject_cast<const QMdiSubWindow*>(frame->parentWidget()))
        frame = document;
    return name == "visible" ? Value(!frame->isHidden()) : std::nullopt;
}

Value ScreenEyes::shownByControl(const Place& place, std::string_view name) {
    const Kind kind = place.target.control->kind();
    if (kind == Kind::MenuEntry || kind == Kind::PopupMenu)
        return shownByEntry(place, name);
    const Binder* binder = binderOf(place);
    if (binder == nullptr)
        return std::nullopt;
    const QWidget& widget = binder->widget();
    if (name == "enabled")
        return isEnabledByItself(widget);
    if (name == "visible")
        return !widget.isHidden();
    if (name == "value") {
        const bool on = dynamic_cast<const QAbstractButton&>(widget).isChecked();
        return kind == Kind::CheckBox ? number(on ? 1 : 0) : PropertyValue(on);
    }
    if (kind == Kind::List && name == "count")
        return number(dynamic_cast<const QTreeView&>(widget).model()->rowCount());
    return shownByKind(widget, name);
}

Value ScreenEyes::shownByEntry(const Place& place, std::string_view name) {
    MenuBinder& menus = screen_.binderOf(*place.window)->menus();
    if (place.target.control->kind() == Kind::PopupMenu) {
        const QMenu* shown = menuWithEntriesOf(screen_, static_cast<const PopupMenu&>(*place.target.control));
        return name == "visible" ? Value(shown->isVisible()) : std::nullopt;
    }
    const QAction* action = menus.actionOf(*place.target.control);
    // The key of an entry comes after a tab.
    if (name == "caption")
        return text(action->text().section(QLatin1Char('\t'), 0, 0));
    // A hidden action reports itself as disabled; its own flag is visible when it is shown again.
    if (name == "enabled")
        return action->isVisible() ? Value(action->isEnabled()) : std::nullopt;
    if (name == "visible")
        return action->isVisible();
    return name == "checked" ? Value(action->isChecked()) : std::nullopt;
}

Value ScreenEyes::shownByButton(const Place& place, std::string_view name) {
    const auto* toolbar = static_cast<const ToolbarBinder*>(binderOf(place));
    const QToolButton* button = toolbar->buttonOf(*place.target.button);
    if (name == "enabled")
        return isEnabledByItself(*button);
    return name == "value" ? Value(number(button->isChecked() ? 1 : 0)) : std::nullopt;
}

Value ScreenEyes::shownByNode(const Place& place, std::string_view name) {
    const auto* view = dynamic_cast<const QAbstractItemView*>(&binderOf(place)->widget());
    const QModelIndex node = static_cast<const NodeTreeModel*>(view->model())->indexOf(place.target.node);
    if (name == "text")
        return text(node.data().toString());
    if (name == "bold")
        return qvariant_cast<QFont>(node.data(Qt::FontRole)).bold();
    return name == "children" ? Value(number(view->model()->rowCount(node))) : std::nullopt;
}

Value ScreenEyes::shownByRow(const Place& place, std::string_view name) {
    const auto* view = dynamic_cast<const QTreeView*>(&binderOf(place)->widget());
    const QModelIndex row = static_cast<const ListModel*>(view->model())->indexOf(place.target.row);
    if (name == "text")
        return text(row.data().toString());
    if (name == "selected")
        return view->selectionModel()->isRowSelected(row.row());
    return std::nullopt;
}

Value ScreenEyes::shownByPanel(const Place& place, std::string_view name) {
    const QLabel* panel = static_cast<const StatusBarBinder*>(binderOf(place))->panel(place.panel->key);
    return name == "text" ? Value(text(panel->text())) : std::nullopt;
}

std::optional<std::vector<std::string>> ScreenEyes::treeLines(const Place& place) {
    settle();
    auto stored = stores_.treeLines(place);
    const Binder* binder = stored ? binderOf(place) : nullptr;
    if (binder == nullptr)
        return stored;
    const auto* view = dynamic_cast<const QAbstractItemView*>(&binder->widget());
    const auto& model = static_cast<const NodeTreeModel&>(*view->model());
    std::vector<std::string> lines;
    addLines(model, place.target.node == nullptr ? QModelIndex() : model.indexOf(place.target.node), 0,
             lines);
    return lines;
}

std::optional<std::vector<std::string>> ScreenEyes::rowLines(const Place& place) {
    settle();
    auto stored = stores_.rowLines(place);
    const Binder* binder = stored ? binderOf(place) : nullptr;
    if (binder == nullptr)
        return stored;
    std::vector<std::string> lines;
    if (const auto* box = dynamic_cast<const StoreComboBox*>(&binder->widget())) {
        for (int row = 0; row < box->count(); ++row)
            lines.push_back(fromQt(box->itemText(row)));
        return lines;
    }
    const auto* view = dynamic_cast<const QTreeView*>(&binder->widget());
    if (view == nullptr)
        return stored;
    const auto& list = static_cast<const List&>(*place.target.control);
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        const std::size_t cells = list.shown()[static_cast<std::size_t>(row)]->cells().size();
        lines.push_back(
            joinedRow(*view->model(), row, list.columns().empty() ? cells : list.columns().size()));
    }
    return lines;
}

} // namespace zb::test
