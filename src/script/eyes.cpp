#include "script/eyes.h"

#include "controls/bars.h"
#include "controls/combo.h"
#include "controls/list.h"
#include "controls/tree.h"
#include "platform/tree/node_walk.h"
#include "script/address.h"
#include "script/properties.h"

#include <charconv>

namespace zb {

namespace {

/// Property "cell2" of a row.
std::optional<PropertyValue> cellOf(const Place& place, std::string_view name) {
    constexpr std::string_view kCell = "cell";
    if (place.kind != Place::Kind::Row || !name.starts_with(kCell))
        return std::nullopt;
    name.remove_prefix(kCell.size());
    std::size_t number = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
    const std::size_t columns = static_cast<const List&>(*place.target.control).columns().size();
    const std::size_t last = columns == 0 ? place.target.row->cells().size() : columns;
    if (name.empty() || read.ec != std::errc() || read.ptr != name.data() + name.size() || number < 1 ||
        number > last)
        return std::nullopt;
    return place.target.row->cell(number - 1);
}

/// Property "tooltip" of a row: what it says beside the cells.
std::optional<PropertyValue> toolTipOf(const Place& place, std::string_view name) {
    if (place.kind != Place::Kind::Row || name != "tooltip")
        return std::nullopt;
    const auto& list = static_cast<const List&>(*place.target.control);
    return list.toolTipOf ? list.toolTipOf(*place.target.row) : std::string();
}

/// `first` and its next siblings, with all that is below them.
std::vector<std::string> linesFrom(const Node* first) {
    std::vector<std::string> lines;
    for (const Node* top = first; top != nullptr; top = top->next()) {
        lines.push_back(top->text());
        for (NodeWalk walk(*top); const Node* node = walk.node(); walk.next())
            lines.push_back(std::string(2 * (walk.depth() + 1), ' ') + node->text());
    }
    return lines;
}

} // namespace

Eyes::Properties StoreEyes::properties(const Place& place) {
    Properties all;
    if (place.kind == Place::Kind::Program) {
        for (const std::string& name : program_.propertyNames())
            all.emplace_back(name, *program_.property(name));
    }
    for (const PropertyRule& rule : propertyRules(place))
        all.emplace_back(rule.name, rule.read(place));
    return all;
}

std::optional<PropertyValue> StoreEyes::property(const Place& place, std::string_view name) {
    if (place.kind == Place::Kind::Program)
        return program_.property(name);
    for (const PropertyRule& rule : propertyRules(place)) {
        if (rule.name == name)
            return rule.read(place);
    }
    const auto toolTip = toolTipOf(place, name);
    return toolTip ? toolTip : cellOf(place, name);
}

std::optional<std::vector<std::string>> StoreEyes::treeLines(const Place& place) {
    if (place.kind == Place::Kind::Node)
        return linesFrom(place.target.node->child());
    if (place.kind != Place::Kind::Control || place.target.control->kind() != Control::Kind::Tree)
        return std::nullopt;
    return linesFrom(static_cast<const Tree&>(*place.target.control).nodes().firstRoot());
}

std::optional<std::vector<std::string>> StoreEyes::rowLines(const Place& place) {
    if (place.kind != Place::Kind::Control)
        return std::nullopt;
    std::vector<std::string> lines;
    if (place.target.control->kind() == Control::Kind::List) {
        Place at = place;
        for (ListRow* row : static_cast<const List&>(*place.target.control).shown()) {
            at.target.row = row;
            lines.push_back(joinedCells(at));
        }
        return lines;
    }
    if (place.target.control->kind() == Control::Kind::Combo)
        return static_cast<const Combo&>(*place.target.control).entries();
    if (place.target.control->kind() != Control::Kind::Toolbar)
        return std::nullopt;
    for (const ToolbarButton& button : static_cast<const Toolbar&>(*place.target.control).buttons())
        lines.push_back(button.key());
    return lines;
}

std::string printValue(const PropertyValue& value) {
    if (const bool* flag = std::get_if<bool>(&value))
        return *flag ? "true" : "false";
    if (const long long* count = std::get_if<long long>(&value))
        return std::to_string(*count);
    return std::get<std::string>(value);
}

} // namespace zb
