#include "screen/script/spots.h"

#include "controls/bars.h"
#include "controls/list.h"
#include "controls/menu.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "desktop/binders/bar_binders.h"
#include "desktop/desktop_screen.h"
#include "desktop/models/list_model.h"
#include "desktop/models/node_tree_view.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>

namespace zb::test {

using Kind = Control::Kind;

namespace {

Spot spotInTree(const Target& target, QWidget& widget) {
    auto& view = dynamic_cast<NodeTreeView&>(widget);
    if (target.node == nullptr)
        return {view.viewport(), view.placeBelowAll()};
    view.reveal(*target.node);
    const QModelIndex index = static_cast<NodeTreeModel*>(view.model())->indexOf(target.node);
    return {view.viewport(), {view.viewport()->width() - 2, view.visualRect(index).center().y()}};
}

// Out of sight where the rows fill the view.
int belowAllRows(const QTreeView& view) {
    constexpr int kFarBelow = 100000;
    const int rows = view.model()->rowCount();
    const int end = rows == 0 ? 0 : view.visualRect(view.model()->index(rows - 1, 0)).bottom() + 1;
    const int height = view.viewport()->height();
    return end + 2 < height ? std::max(height - 3, end + 1) : height + kFarBelow;
}

Spot spotInList(const Target& target, QWidget& widget) {
    auto& view = dynamic_cast<QTreeView&>(widget);
    if (target.column) {
        QHeaderView& header = *view.header();
        const int section = static_cast<int>(*target.column);
        const auto middle = [&] {
            return header.sectionViewportPosition(section) + header.sectionSize(section) / 2;
        };
        if (middle() < 0 || middle() >= header.viewport()->width())
            view.horizontalScrollBar()->setValue(header.sectionPosition(section));
        const int place = middle();
        return {header.viewport(), {place, header.height() / 2}};
    }
    if (target.row == nullptr)
        return {view.viewport(), {view.viewport()->width() / 2, belowAllRows(view)}};
    const QModelIndex index = static_cast<ListModel*>(view.model())->indexOf(target.row);
    view.scrollTo(index);
    return {view.viewport(), {4, view.visualRect(index).center().y()}};
}

} // namespace

Binder& binderOf(const DesktopScreen& screen, const Control& control) {
    return *screen.binderOf(control.window())->binderOf(control);
}

Spot spotOf(const DesktopScreen& screen, const Target& target) {
    Binder& binder = binderOf(screen, *target.control);
    QWidget& widget = binder.widget();
    switch (target.control->kind()) {
    case Kind::Toolbar:
        if (target.button != nullptr) {
            QToolButton* button = static_cast<ToolbarBinder&>(binder).buttonOf(*target.button);
            return {button, button->rect().center()};
        }
        return {&widget, widget.rect().center()};
    case Kind::Tree:
        return spotInTree(target, widget);
    case Kind::List:
        return spotInList(target, widget);
    // After the end of the text, and on the box of a check box.
    case Kind::TextField:
        return {&widget, {widget.width() - 4, widget.height() / 2}};
    case Kind::CheckBox:
    case Kind::Option:
        return {&widget, {8, widget.height() / 2}};
    default:
        return {&widget, widget.rect().center()};
    }
}

QMenu* menuWithEntriesOf(const DesktopScreen& screen, const PopupMenu& popup) {
    const PopupMenu* host = popup.host();
    const PopupMenu& shown = host != nullptr && host->isOpen() ? *host : popup;
    return screen.binderOf(shown.window())->menus().menuOf(shown);
}

} // namespace zb::test
