#include "script/address.h"

#include "controls/bars.h"
#include "controls/desktop.h"
#include "controls/list.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "platform/text.h"
#include "script/script_failure.h"

#include <charconv>
#include <optional>
#include <string>
#include <vector>

namespace zb {

namespace {

using Kind = Place::Kind;

std::optional<int> wholeNumber(std::string_view text) {
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || read.ec != std::errc() || read.ptr != text.data() + text.size() || number < 0)
        return std::nullopt;
    return number;
}

/// The number after "#"; nothing for a Key.
std::optional<int> positionOf(std::string_view member) {
    return member.starts_with('#') ? wholeNumber(member.substr(1)) : std::nullopt;
}

template<typename Items, typename NameOf>
std::string namesOf(const Items& items, NameOf nameOf) {
    // Enough to see a typing mistake; a tree may have thousands.
    constexpr std::size_t kMost = 40;
    std::vector<std::string> names;
    for (const auto& item : items) {
        if (names.size() == kMost) {
            names.emplace_back("...");
            break;
        }
        names.emplace_back(nameOf(item));
    }
    return names.empty() ? "none" : join(names, ", ");
}

[[noreturn]] void failMember(const Control& control, std::string_view member, const std::string& found) {
    throw ScriptFailure(
        "a member [" + std::string(member) + "] of " + control.window().name() + "." + control.name(), found);
}

Node* childOf(Node* node, std::string_view position) {
    const auto number = wholeNumber(position);
    if (!number || *number == 0)
        return nullptr;
    node = node->child();
    for (int left = *number; node != nullptr && left > 1; --left)
        node = node->next();
    return node;
}

Place nodePlace(Place place, std::string_view member) {
    const NodeTree& nodes = static_cast<Tree&>(*place.target.control).nodes();
    const auto pieces = split(member, "/");
    const std::string first = pieces.empty() ? std::string() : pieces.front();
    const auto position = positionOf(first);
    Node* node = position ? nodes.at(*position) : nodes.find(first);
    for (std::size_t i = 1; node != nullptr && i < pieces.size(); ++i)
        node = childOf(node, pieces[i]);
    if (node == nullptr)
        failMember(*place.target.control, member, std::to_string(nodes.count()) + " nodes without it");
    place.kind = Kind::Node;
    place.target.node = node;
    return place;
}

Place rowPlace(Place place, std::string_view member) {
    const List& list = static_cast<List&>(*place.target.control);
    ListRow* row = nullptr;
    if (const auto position = positionOf(member)) {
        const auto index = static_cast<std::size_t>(*position);
        row = index >= 1 && index <= list.count() ? list.shown()[index - 1] : nullptr;
    } else {
        row = list.find(member);
    }
    if (row == nullptr)
        failMember(list, member, std::to_string(list.count()) + " rows without it");
    place.kind = Kind::Row;
    place.target.row = row;
    return place;
}

Place columnPlace(Place place, std::string_view member) {
    const List& list = static_cast<List&>(*place.target.control);
    const auto number = wholeNumber(member);
    if (!number || *number == 0 || static_cast<std::size_t>(*number) > list.columns().size())
        failMember(list, "columns " + std::string(member),
                   std::to_string(list.columns().size()) + " columns");
    place.kind = Kind::Column;
    place.target.column = static_cast<std::size_t>(*number) - 1;
    return place;
}

Place buttonPlace(Place place, std::string_view member) {
    Toolbar& bar = static_cast<Toolbar&>(*place.target.control);
    ToolbarButton* button = bar.find(member);
    if (button == nullptr)
        failMember(bar, member, namesOf(bar.buttons(), [](const ToolbarButton& one) { return one.key(); }));
    place.kind = Kind::ToolbarButton;
    place.target.button = button;
    return place;
}

Place panelPlace(Place place, std::string_view member) {
    const StatusBar& bar = static_cast<StatusBar&>(*place.target.control);
    place.panel = bar.find(member);
    if (place.panel == nullptr)
        failMember(bar, member, namesOf(bar.panels(), [](const StatusPanel& one) { return one.key; }));
    place.kind = Kind::StatusPanel;
    return place;
}

Place memberPlace(const Place& place, std::string_view member) {
    switch (place.target.control->kind()) {
    case Control::Kind::Tree:
        return nodePlace(place, member);
    case Control::Kind::List:
        return rowPlace(place, member);
    case Control::Kind::Toolbar:
        return buttonPlace(place, member);
    case Control::Kind::StatusBar:
        return panelPlace(place, member);
    default:
        failMember(*place.target.control, member, "a control without members");
    }
}

/// The part after the name of a control: nothing, "[member]" or ".columns[N]".
Place afterControl(const Place& place, std::string_view rest) {
    constexpr std::string_view kColumns = ".columns[";
    if (rest.empty())
        return place;
    const bool isList = place.target.control->kind() == Control::Kind::List;
    if (isList && rest.starts_with(kColumns) && rest.ends_with(']'))
        return columnPlace(place, rest.substr(kColumns.size(), rest.size() - kColumns.size() - 1));
    if (!rest.starts_with('[') || !rest.ends_with(']') || rest.size() < 2)
        throw ScriptFailure("a member in brackets after " + place.target.control->name(), std::string(rest));
    return memberPlace(place, rest.substr(1, rest.size() - 2));
}

/// The control whose name the text begins with; the names of control arrays contain brackets.
Place controlPlace(Window& window, std::string_view text) {
    for (std::size_t length = text.size(); length > 0; length = text.find_last_of("[.", length - 1)) {
        if (length == std::string_view::npos)
            break;
        Control* control = window.find(text.substr(0, length));
        if (control == nullptr)
            continue;
        Place place;
        place.kind = Kind::Control;
        place.window = &window;
        place.target.control = control;
        return afterControl(place, text.substr(length));
    }
    throw ScriptFailure("a control " + std::string(text) + " of " + window.name(),
                        namesOf(window.controls(), [](const Control* one) { return one->name(); }));
}

} // namespace

Place resolveAddress(Desktop& desktop, std::string_view address) {
    if (address == "app")
        return {};
    const auto dot = address.find('.');
    Window* window = desktop.find(address.substr(0, dot));
    if (window == nullptr) {
        throw ScriptFailure("a window of " + std::string(address),
                            namesOf(desktop.windows(), [](const Window* one) { return one->name(); }));
    }
    if (dot != std::string_view::npos)
        return controlPlace(*window, address.substr(dot + 1));
    Place place;
    place.kind = Kind::Window;
    place.window = window;
    return place;
}

} // namespace zb
