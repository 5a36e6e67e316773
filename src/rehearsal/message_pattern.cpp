#include "rehearsal/message_pattern.h"

#include "rehearsal/item_value.h"

#include <algorithm>

namespace zb::rehearsal {

namespace {

using secs2::Format;
using secs2::Item;
using secs2::Items;

std::string formatText(Format format) {
    return format == Format::List ? "a list" : "format " + std::string(secs2::traitsOf(format).word);
}

std::string pathBelow(const std::string& path, std::size_t position) {
    return path.empty() ? std::to_string(position) : path + "/" + std::to_string(position);
}

/// The number of items from `first` on that are not within another of them.
std::size_t membersBetween(const std::vector<PatternItem>& pattern, std::size_t first, std::size_t end) {
    std::size_t members = 0;
    for (std::size_t at = first; at < end; at = pattern[at].end)
        ++members;
    return members;
}

template<typename... Text>
Difference structureDifference(Text... text) {
    return {Difference::Kind::Structure, {}, (std::string() + ... + text)};
}

std::optional<Difference> listDifference(const std::vector<PatternItem>& pattern, std::size_t wanted,
                                         const Item& list) {
    const PatternItem& defined = pattern[wanted];
    if (defined.isFixed) {
        const std::size_t members = membersBetween(pattern, wanted + 1, defined.end);
        if (members != list.size)
            return structureDifference("expected a list of ", std::to_string(members), " items, found ",
                                       std::to_string(list.size));
    } else if (list.size > defined.count) {
        return structureDifference("expected at most ", std::to_string(defined.count),
                                   " items in the list, found ", std::to_string(list.size));
    }
    return std::nullopt;
}

/// How an item differs, without the members of a list.
std::optional<Difference> ownDifference(const std::vector<PatternItem>& pattern, std::size_t wanted,
                                        const Items& items, const Item& item, const CodePage& codePage) {
    const PatternItem& defined = pattern[wanted];
    if (defined.format && item.format != *defined.format)
        return structureDifference("expected ", formatText(*defined.format), ", found ",
                                   formatText(item.format));
    if (defined.format == Format::List)
        return listDifference(pattern, wanted, item);
    if (defined.isKey && !equalsValue(items, item, defined.value, codePage))
        return Difference{Difference::Kind::Key,
                          {},
                          "the key item " + defined.name + " is " + itemText(items, item, codePage) +
                              ", expected " + defined.value};
    const std::size_t count = defined.format ? Items::count(item) : 0;
    if (!defined.format || (defined.isFixed ? count == defined.count : count <= defined.count))
        return std::nullopt;
    return structureDifference("expected ", defined.isFixed ? "" : "at most ", std::to_string(defined.count),
                               secs2::traitsOf(item.format).kind == secs2::ValueKind::Text ? " characters"
                                                                                           : " values",
                               ", found ", std::to_string(count));
}

/// How the root differs where the definition has no item, or several.
std::optional<Difference> rootDifference(const Items& items, std::size_t roots) {
    if (roots == 0)
        return items.empty() ? std::nullopt
                             : std::optional(structureDifference("expected no data, found ",
                                                                 formatText(items[0].format)));
    if (items.empty())
        return structureDifference("expected data, found none");
    if (roots == 1)
        return std::nullopt;
    if (items[0].format != Format::List)
        return structureDifference("expected a list, found ", formatText(items[0].format));
    if (items[0].size != roots)
        return structureDifference("expected a list of ", std::to_string(roots), " items, found ",
                                   std::to_string(items[0].size));
    return std::nullopt;
}

/// Compares one message. Positions of items and of their definitions advance together.
class Comparison {
public:
    Comparison(const std::vector<PatternItem>& pattern, const Items& items, const CodePage& codePage,
               std::size_t most)
        : pattern_(pattern), items_(items), codePage_(codePage), most_(most) {}

    std::vector<Difference> run(std::size_t roots) {
        if (auto difference = rootDifference(items_, roots))
            add(*std::move(difference), {});
        else if (roots > 1)
            compareMembers(0, 0, "");
        else if (roots == 1)
            compareItem(0, 0, "1");
        return std::move(differences_);
    }

private:
    void add(Difference difference, const std::string& path) {
        difference.path = path;
        if (!isFull())
            differences_.push_back(std::move(difference));
    }

    void compareItem(std::size_t wanted, std::size_t found, const std::string& path) {
        const PatternItem& pattern = pattern_[wanted];
        const Item& item = items_[found];
        const bool isList = pattern.format == Format::List && item.format == Format::List;
        auto difference = ownDifference(pattern_, wanted, items_, item, codePage_);
        const bool goesOn = isList && (!difference || !pattern.isFixed);
        if (difference)
            add(*std::move(difference), path);
        if (goesOn && pattern.isFixed)
            compareMembers(wanted + 1, found, path);
        else if (goesOn && pattern.end > wanted + 1)
            compareRepeated(wanted + 1, found, path);
    }

    /// All members of a variable list have one definition.
    void compareRepeated(std::size_t wanted, std::size_t list, const std::string& path) {
        std::size_t position = 0;
        for (std::size_t member = list + 1; member < items_[list].end && !isFull();
             member = items_[member].end)
            compareItem(wanted, member, pathBelow(path, ++position));
    }

    /// The members of a list are as many as their definitions, of which `wanted` is the first.
    void compareMembers(std::size_t wanted, std::size_t list, const std::string& path) {
        std::size_t position = 0;
        for (std::size_t member = list + 1; member < items_[list].end && !isFull();
             member = items_[member].end, wanted = pattern_[wanted].end)
            compareItem(wanted, member, pathBelow(path, ++position));
    }

    bool isFull() const { return differences_.size() >= most_; }

    const std::vector<PatternItem>& pattern_;
    const Items& items_;
    const CodePage& codePage_;
    std::size_t most_;
    std::vector<Difference> differences_;
};

} // namespace

MessagePattern::MessagePattern(const SECSMessageRecord& record) {
    std::vector<std::size_t> open;
    for (const SECSItemRecord& item : record.getItems()) {
        const auto level = static_cast<std::size_t>(std::max(item.getLevel(), 1));
        while (open.size() >= level) {
            items_[open.back()].end = items_.size();
            open.pop_back();
        }
        PatternItem pattern;
        pattern.format = secs2::formatOfWord(item.getType());
        pattern.isFixed = item.isFixed();
        pattern.isKey = item.isKey();
        pattern.count = static_cast<std::size_t>(std::max(item.getCount(), 0));
        pattern.name = item.getName();
        pattern.value = item.getValue();
        roots_ += open.empty() ? 1 : 0;
        keys_ += pattern.isKey ? 1 : 0;
        open.push_back(items_.size());
        items_.push_back(std::move(pattern));
    }
    for (const std::size_t index : open)
        items_[index].end = items_.size();
}

std::optional<std::size_t> MessagePattern::find(const std::string& name) const {
    for (std::size_t i = items_.size(); i-- > 0;)
        if (items_[i].name == name)
            return i;
    return std::nullopt;
}

std::vector<std::size_t> MessagePattern::listsAround(std::size_t index) const {
    std::vector<std::size_t> lists;
    for (std::size_t i = 0; i < index; ++i)
        if (items_[i].end > index)
            lists.push_back(i);
    return lists;
}

std::vector<Difference> MessagePattern::compare(const Items& items, const CodePage& codePage,
                                                std::size_t most) const {
    return Comparison(items_, items, codePage, most).run(roots_);
}

std::optional<Difference> MessagePattern::differenceOfRoot(const Items& items) const {
    return rootDifference(items, roots_);
}

std::optional<Difference> MessagePattern::differenceOfItem(std::size_t index, const Items& items,
                                                           const Item& item, const CodePage& codePage) const {
    return ownDifference(items_, index, items, item, codePage);
}

} // namespace zb::rehearsal
