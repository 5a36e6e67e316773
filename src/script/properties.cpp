#include "script/properties.h"

#include "controls/bars.h"
#include "controls/combo.h"
#include "controls/desktop.h"
#include "controls/list.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "platform/text.h"
#include "script/address.h"

#include <algorithm>
#include <array>
#include <vector>

namespace zb {

namespace {

using Rule = PropertyRule;

template<typename Store = Control>
const Store& of(const Place& place) {
    return static_cast<const Store&>(*place.target.control);
}
const Node& nodeOf(const Place& place) {
    return *place.target.node;
}
const ListRow& rowOf(const Place& place) {
    return *place.target.row;
}
const ToolbarButton& buttonOf(const Place& place) {
    return *place.target.button;
}
const ListColumn& columnOf(const Place& place) {
    return of<List>(place).columns()[*place.target.column];
}

PropertyValue number(std::size_t count) {
    return static_cast<long long>(count);
}
PropertyValue number(int count) {
    return static_cast<long long>(count);
}

PropertyValue colour(const OptionalColor& color, const char* otherwise) {
    if (!color)
        return otherwise;
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "#";
    for (const unsigned part : {color->red, color->green, color->blue}) {
        text += kDigits[part / 16U];
        text += kDigits[part % 16U];
    }
    return text;
}

constexpr Rule kCaption{"caption", [](const Place& at) -> PropertyValue { return of<>(at).caption(); }};
constexpr Rule kEnabled{"enabled", [](const Place& at) -> PropertyValue { return of<>(at).enabled(); }};
constexpr Rule kVisible{"visible", [](const Place& at) -> PropertyValue { return of<>(at).visible(); }};
constexpr Rule kFocused{"focused", [](const Place& at) -> PropertyValue { return of<>(at).focused(); }};

constexpr std::array kWindow{
    Rule{"caption", [](const Place& at) -> PropertyValue { return at.window->caption(); }},
    Rule{"visible", [](const Place& at) -> PropertyValue { return at.window->visible(); }},
    Rule{"pointer", [](const Place& at) { return number(static_cast<int>(at.window->pointer())); }},
};
constexpr std::array kTextField{
    Rule{"text", [](const Place& at) -> PropertyValue { return of<TextField>(at).text(); }},
    kEnabled,
    kVisible,
    Rule{"locked", [](const Place& at) -> PropertyValue { return of<TextField>(at).locked(); }},
    kFocused,
    Rule{"selectedtext", [](const Place& at) -> PropertyValue { return of<TextField>(at).selectedText(); }},
};
constexpr std::array kLabel{
    Rule{"text", [](const Place& at) -> PropertyValue { return of<Label>(at).text(); }},
    kVisible,
};
constexpr std::array kCheckBox{
    Rule{"value", [](const Place& at) { return number(of<CheckBox>(at).checked() ? 1 : 0); }},
    kCaption,
    kEnabled,
    kFocused,
    kVisible,
};
constexpr std::array kOption{
    Rule{"value", [](const Place& at) -> PropertyValue { return of<Option>(at).on(); }},
    kCaption,
    kEnabled,
    kFocused,
    kVisible,
};
constexpr std::array kButton{kCaption, kEnabled, kFocused, kVisible};
constexpr std::array kPane{kCaption, kEnabled, kVisible};
constexpr std::array kMenuEntry{
    kCaption,
    kEnabled,
    kVisible,
    Rule{"checked", [](const Place& at) -> PropertyValue { return of<MenuEntry>(at).checked(); }},
};
constexpr std::array kPopupMenu{
    Rule{"visible", [](const Place& at) -> PropertyValue { return of<PopupMenu>(at).isOpen(); }},
};
constexpr std::array kBar{kEnabled, kVisible};
constexpr std::array kToolbarButton{
    Rule{"enabled", [](const Place& at) -> PropertyValue { return buttonOf(at).enabled(); }},
    Rule{"value", [](const Place& at) { return number(buttonOf(at).value()); }},
    Rule{"image",
         [](const Place& at) -> PropertyValue {
             const std::string& name = buttonOf(at).picture();
             return name.empty() ? number(buttonOf(at).image()) : name;
         }},
};
constexpr std::array kStatusPanel{
    Rule{"text", [](const Place& at) -> PropertyValue { return at.panel->text; }},
};
constexpr std::array kCombo{
    Rule{"text", [](const Place& at) -> PropertyValue { return of<Combo>(at).text(); }},
    Rule{"count", [](const Place& at) { return number(of<Combo>(at).entries().size()); }},
    kEnabled,
    kVisible,
    kFocused,
};
constexpr std::array kFolderField{
    Rule{"text", [](const Place& at) -> PropertyValue { return of<FolderField>(at).text(); }},
    kEnabled,
    kVisible,
    kFocused,
};
constexpr std::array kList{
    Rule{"count", [](const Place& at) { return number(of<List>(at).count()); }},
    Rule{"columns", [](const Place& at) { return number(of<List>(at).columns().size()); }},
    Rule{"selected",
         [](const Place& at) { return number(of<List>(at).positionOf(of<List>(at).selected())); }},
    Rule{"sortkey", [](const Place& at) { return number(of<List>(at).sortKey()); }},
    Rule{"sorted", [](const Place& at) -> PropertyValue { return of<List>(at).sorted(); }},
    kEnabled,
    kVisible,
    kFocused,
};
constexpr std::array kColumn{
    Rule{"text", [](const Place& at) -> PropertyValue { return columnOf(at).text; }},
    Rule{"key", [](const Place& at) -> PropertyValue { return columnOf(at).key; }},
    Rule{"width", [](const Place& at) { return number(columnOf(at).width); }},
};
constexpr std::array kRow{
    Rule{"text", [](const Place& at) -> PropertyValue { return rowOf(at).text(); }},
    Rule{"key", [](const Place& at) -> PropertyValue { return rowOf(at).key(); }},
    Rule{"image", [](const Place& at) -> PropertyValue { return rowOf(at).image(); }},
    Rule{"bold", [](const Place& at) -> PropertyValue { return rowOf(at).bold(); }},
    Rule{"forecolor", [](const Place& at) { return colour(rowOf(at).foreColor(), "text"); }},
    Rule{"selected", [](const Place& at) -> PropertyValue { return rowOf(at).selected(); }},
    Rule{"cells", [](const Place& at) -> PropertyValue { return joinedCells(at); }},
};
constexpr std::array kTree{
    Rule{"count", [](const Place& at) { return number(of<Tree>(at).nodes().count()); }},
    Rule{"selected",
         [](const Place& at) {
             const Node* node = of<Tree>(at).nodes().selected();
             return number(node == nullptr ? 0 : node->index());
         }},
    Rule{"backcolor", [](const Place& at) { return colour(of<Tree>(at).backColor(), "window"); }},
    kEnabled,
    kVisible,
    kFocused,
};
constexpr std::array kNode{
    Rule{"text", [](const Place& at) -> PropertyValue { return nodeOf(at).text(); }},
    Rule{"key", [](const Place& at) -> PropertyValue { return std::string(nodeOf(at).key()); }},
    Rule{"index", [](const Place& at) { return number(nodeOf(at).index()); }},
    Rule{"parent",
         [](const Place& at) {
             const Node* parent = nodeOf(at).parent();
             return number(parent == nullptr ? 0 : parent->index());
         }},
    Rule{"children", [](const Place& at) { return number(nodeOf(at).children()); }},
    Rule{"bold", [](const Place& at) -> PropertyValue { return nodeOf(at).bold(); }},
    Rule{"expanded", [](const Place& at) -> PropertyValue { return nodeOf(at).expanded(); }},
    Rule{"selected",
         [](const Place& at) -> PropertyValue { return of<Tree>(at).nodes().selected() == at.target.node; }},
    Rule{"image", [](const Place& at) -> PropertyValue { return nodeOf(at).image(); }},
    Rule{"forecolor", [](const Place& at) { return colour(nodeOf(at).foreColor(), "text"); }},
    Rule{"backcolor", [](const Place& at) { return colour(nodeOf(at).backColor(), "window"); }},
};

std::span<const Rule> controlRules(Control::Kind kind) {
    switch (kind) {
    case Control::Kind::TextField:
        return kTextField;
    case Control::Kind::Label:
        return kLabel;
    case Control::Kind::CheckBox:
        return kCheckBox;
    case Control::Kind::Option:
        return kOption;
    case Control::Kind::Button:
        return kButton;
    case Control::Kind::Pane:
        return kPane;
    case Control::Kind::MenuEntry:
        return kMenuEntry;
    case Control::Kind::PopupMenu:
        return kPopupMenu;
    case Control::Kind::Toolbar:
    case Control::Kind::StatusBar:
        return kBar;
    case Control::Kind::Combo:
        return kCombo;
    case Control::Kind::FolderField:
        return kFolderField;
    case Control::Kind::List:
        return kList;
    case Control::Kind::Tree:
        return kTree;
    }
    return {};
}

} // namespace

std::span<const PropertyRule> propertyRules(const Place& place) {
    switch (place.kind) {
    case Place::Kind::Program:
        return {};
    case Place::Kind::Window:
        return kWindow;
    case Place::Kind::Control:
        return controlRules(place.target.control->kind());
    case Place::Kind::Node:
        return kNode;
    case Place::Kind::Row:
        return kRow;
    case Place::Kind::Column:
        return kColumn;
    case Place::Kind::ToolbarButton:
        return kToolbarButton;
    case Place::Kind::StatusPanel:
        return kStatusPanel;
    }
    return {};
}

std::string joinedCells(const Place& row) {
    const std::size_t columns = of<List>(row).columns().size();
    std::vector<std::string> cells = rowOf(row).cells();
    cells.resize(columns == 0 ? cells.size() : columns);
    return join(cells, " | ");
}

} // namespace zb
