#include "rehearsal/condition_value.h"

#include "platform/number.h"
#include "rehearsal/item_value.h"

namespace zb::rehearsal {

namespace {

using secs2::Item;
using secs2::Items;

/// The member at the position, from 0; nothing when the list has fewer.
std::optional<std::size_t> memberAt(const Items& items, std::size_t list, std::size_t position) {
    if (items[list].format != secs2::Format::List || position >= items[list].size)
        return std::nullopt;
    std::size_t member = list + 1;
    for (; position > 0; --position)
        member = items[member].end;
    return member;
}

/// The position that an index means, from 0; nothing for an index that is no position.
std::optional<std::size_t> positionOf(const std::vector<std::string>& indexes, std::size_t dimension) {
    if (dimension >= indexes.size())
        return 0;
    constexpr double kMost = 1e9;
    const auto number = toNumber(indexes[dimension]);
    if (!number || *number < 1 || *number > kMost || *number != roundHalfEven(*number))
        return std::nullopt;
    return static_cast<std::size_t>(*number) - 1;
}

} // namespace

const Item* findItem(const ReceivedData& data, const DataItemAddress& address) {
    const auto target = data.pattern.find(address.name());
    if (!target || data.items.empty())
        return nullptr;
    const std::vector<PatternItem>& pattern = data.pattern.items();
    const std::vector<std::string> indexes = address.indexes();
    std::vector<std::size_t> way = data.pattern.listsAround(*target);
    way.push_back(*target);
    std::optional<std::size_t> found = 0;
    std::size_t dimension = 0;
    // From each item on the way to the next: the members of a variable list are all described by its one
    // member.
    std::size_t first = 0;
    if (data.pattern.hasImplicitList()) {
        std::size_t position = 0;
        for (; pattern[first].end <= way[0]; first = pattern[first].end)
            ++position;
        found = memberAt(data.items, 0, position);
    }
    for (std::size_t step = 0; found && step + 1 < way.size(); ++step) {
        const std::size_t list = way[step];
        std::optional<std::size_t> position = 0;
        if (pattern[list].isVariableList())
            position = positionOf(indexes, dimension++);
        else
            for (std::size_t at = list + 1; pattern[at].end <= way[step + 1]; at = pattern[at].end)
                ++*position;
        found = position ? memberAt(data.items, *found, *position) : std::nullopt;
    }
    return found ? &data.items[*found] : nullptr;
}

ComparedItem evaluate(const ReceivedData& data, const Comparison& comparison) {
    ComparedItem compared;
    compared.comparison = &comparison;
    const Item* const item = findItem(data, comparison.item);
    compared.isPresent = item != nullptr;
    bool isEqual = false;
    if (item != nullptr) {
        compared.value = itemText(data.items, *item, data.codePage);
        isEqual = equalsValue(data.items, *item, comparison.plainValue(), data.codePage);
    }
    compared.holds = isEqual == comparison.isEqual;
    return compared;
}

bool evaluate(const ReceivedData& data, const Condition& condition, std::vector<ComparedItem>* compared) {
    if (condition.nodes().empty())
        return false;
    std::vector<bool> values;
    values.reserve(condition.nodes().size());
    for (const ConditionNode& node : condition.nodes()) {
        if (const auto* junction = std::get_if<Junction>(&node)) {
            const bool left = values[junction->left];
            const bool right = values[junction->right];
            values.push_back(junction->word == Junction::Word::And ? left && right : left || right);
            continue;
        }
        ComparedItem item = evaluate(data, std::get<Comparison>(node));
        values.push_back(item.holds);
        if (compared != nullptr)
            compared->push_back(std::move(item));
    }
    return values.back();
}

} // namespace zb::rehearsal
