#include "modeler/dialog_contents.h"

#include "controls/bars.h"
#include "controls/combo.h"
#include "controls/list.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "platform/tree/node_walk.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zb {

namespace {

using Kind = Control::Kind;

template<typename Store>
const Store& as(const Control& control) {
    return static_cast<const Store&>(control);
}
template<typename Store>
Store& as(Control& control) {
    return static_cast<Store&>(control);
}

bool holds(const std::vector<const Control*>& controls, const Control* control) {
    return std::find(controls.begin(), controls.end(), control) != controls.end();
}

} // namespace

DialogContents::DialogContents(const Window& window, const std::vector<const Control*>& leftOut)
    : caption_(window.caption()) {
    for (const Control* control : window.controls()) {
        const bool isMenu = control->kind() == Kind::MenuEntry || control->kind() == Kind::PopupMenu;
        if (!isMenu && !holds(leftOut, control))
            parts_.push_back(read(*control));
    }
}

DialogContents::Part DialogContents::read(const Control& control) {
    Part part;
    part.control = &control;
    part.enabled = control.enabled();
    part.visible = control.visible();
    part.caption = control.caption();
    switch (control.kind()) {
    case Kind::TextField:
        part.text = as<TextField>(control).text();
        break;
    case Kind::Label:
        part.text = as<Label>(control).text();
        break;
    case Kind::CheckBox:
        part.on = as<CheckBox>(control).checked();
        break;
    case Kind::Option:
        part.on = as<Option>(control).on();
        break;
    case Kind::Combo:
        part.text = as<Combo>(control).text();
        part.entries = as<Combo>(control).entries();
        break;
    case Kind::List:
        for (const auto& row : as<List>(control).rows())
            part.rows.push_back({row->key(), row->cells()});
        break;
    case Kind::Tree:
        part.nodes = nodesOf(as<Tree>(control));
        break;
    case Kind::Toolbar:
        for (const ToolbarButton& button : as<Toolbar>(control).buttons())
            part.buttons.push_back({button.value(), button.picture()});
        break;
    default:
        break;
    }
    return part;
}

std::vector<DialogContents::ShownNode> DialogContents::nodesOf(const Tree& tree) {
    std::vector<ShownNode> nodes;
    const auto add = [&](const Node& node, int level) {
        nodes.push_back({level, node.text(), std::string(node.key()), node.image(), node.backColor(),
                         node.bold(), node.expanded(), tree.nodes().selected() == &node});
    };
    for (const Node* top = tree.nodes().firstRoot(); top != nullptr; top = top->next()) {
        add(*top, 0);
        for (NodeWalk walk(*top); const Node* node = walk.node(); walk.next())
            add(*node, static_cast<int>(walk.depth()) + 1);
    }
    return nodes;
}

void DialogContents::showIn(Window& window) const {
    window.setCaption(caption_);
    for (const Part& part : parts_) {
        const auto& controls = window.controls();
        const auto found = std::find(controls.begin(), controls.end(), part.control);
        if (found != controls.end())
            show(part, **found);
    }
}

void DialogContents::show(const Part& part, Control& control) {
    control.setCaption(part.caption);
    switch (control.kind()) {
    case Kind::TextField:
        as<TextField>(control).setText(part.text);
        break;
    case Kind::Label:
        as<Label>(control).setText(part.text);
        break;
    case Kind::CheckBox:
        as<CheckBox>(control).setChecked(part.on);
        break;
    case Kind::Option:
        as<Option>(control).setOn(part.on);
        break;
    case Kind::Combo:
        as<Combo>(control).clear();
        for (const std::string& entry : part.entries)
            as<Combo>(control).add(entry);
        as<Combo>(control).setText(part.text);
        break;
    case Kind::List:
        as<List>(control).clear();
        for (const ShownRow& shown : part.rows) {
            ListRow& row = as<List>(control).add(shown.cells.front(), shown.key);
            for (std::size_t cell = 1; cell < shown.cells.size(); ++cell)
                row.setCell(cell, shown.cells[cell]);
        }
        break;
    case Kind::Tree:
        showNodes(part.nodes, as<Tree>(control));
        break;
    case Kind::Toolbar:
        for (std::size_t at = 0; at < part.buttons.size(); ++at) {
            as<Toolbar>(control).buttons()[at].setValue(part.buttons[at].value);
            as<Toolbar>(control).buttons()[at].setPicture(part.buttons[at].picture);
        }
        break;
    default:
        break;
    }
    control.setEnabled(part.enabled);
    control.setVisible(part.visible);
}

void DialogContents::showNodes(const std::vector<ShownNode>& nodes, Tree& tree) {
    NodeTree& shown = tree.nodes();
    shown.clear();
    std::vector<Node*> path; // the last node of each level
    Node* selected = nullptr;
    for (const ShownNode& from : nodes) {
        path.resize(static_cast<std::size_t>(from.level));
        Node& node = path.empty() ? shown.add(nullptr, Relation::Last, from.text)
                                  : shown.add(path.back(), Relation::Child, from.text);
        shown.setKey(node, from.key);
        node.setImage(from.image);
        node.setBackColor(from.backColor);
        node.setBold(from.bold);
        node.setExpanded(from.expanded);
        if (from.selected)
            selected = &node;
        path.push_back(&node);
    }
    shown.select(selected);
}

bool DialogContents::holdsSameAs(const DialogContents& other,
                                 const std::vector<const Control*>& besides) const {
    return std::equal(parts_.begin(), parts_.end(), other.parts_.begin(), other.parts_.end(),
                      [&](const Part& one, const Part& two) {
                          return one.control == two.control &&
                                 (holds(besides, one.control) || sameEntries(one, two));
                      });
}

bool DialogContents::sameEntries(const Part& one, const Part& other) {
    const auto sameText = [](const ShownNode& node, const ShownNode& second) {
        return node.level == second.level && node.text == second.text;
    };
    const bool sameWord = one.control->kind() == Kind::Label || one.text == other.text;
    return sameWord && one.on == other.on && one.rows == other.rows &&
           std::equal(one.nodes.begin(), one.nodes.end(), other.nodes.begin(), other.nodes.end(), sameText);
}

} // namespace zb
