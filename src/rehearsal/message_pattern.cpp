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

/// Compares one message. Positions of items and of their definitions advance together.
class Comparison {
public:
    Comparison(const std::vector<PatternItem>& pattern, const Items& items, const CodePage& codePage,
               std::size_t most)
        : pattern_(pattern), items_(items), codePage_(codePage), most_(most) {}

    std::vector<Difference> run(std::size_t roots) {
        if (roots == 0 && !items_.empty())
            add({}, "expected no data, found " + formatText(items_[0].format));
        else if (roots > 0 && items_.empty())
            add({}, "expected data, found none");
        else if (roots > 1)
            compareMembers(0, pattern_.size(), 0, "");
        else if (roots == 1)
            compareItem(0, 0, "1");
        return std::move(differences_);
    }

private:
    template<typename... Text>
    void add(const std::string& path, Text... text) {
        addOfKind(Difference::Kind::Structure, path, text...);
    }
    template<typename... Text>
    void addOfKind(Difference::Kind kind, const std::string& path, Text... text) {
        if (differences_.size() < most_)
            differences_.push_back({kind, path, (std::string() + ... + text)});
    }

    void compareItem(std::size_t wanted, std::size_t found, const std::string& path) {
        const PatternItem& pattern = pattern_[wanted];
        const Item& item = items_[found];
        if (!pattern.format) {
            compareKey(pattern, item, path);
            return;
        }
        if (item.format != *pattern.format)
            return add(path, "expected ", formatText(*pattern.format), ", found ", formatText(item.format));
        if (item.format == Format::List)
            return compareList(wanted, found, path);
        // The count of another key is not worth a word.
        if (!compareKey(pattern, item, path))
            return;
        const std::size_t count = Items::count(item);
        if (pattern.isFixed ? count != pattern.count : count > pattern.count)
            add(path, "expected ", pattern.isFixed ? "" : "at most ", std::to_string(pattern.count),
                secs2::traitsOf(item.format).kind == secs2::ValueKind::Text ? " characters" : " values",
                ", found ", std::to_string(count));
    }

    /// False, with a difference, for another key.
    bool compareKey(const PatternItem& pattern, const Item& item, const std::string& path) {
        if (!pattern.isKey || equalsValue(items_, item, pattern.value, codePage_))
            return true;
        addOfKind(Difference::Kind::Key, path, "the key item ", pattern.name, " is ",
                  itemText(items_, item, codePage_), ", expected ", pattern.value);
        return false;
    }

    void compareList(std::size_t wanted, std::size_t found, const std::string& path) {
        const PatternItem& pattern = pattern_[wanted];
        if (pattern.isFixed)
            return compareMembers(wanted + 1, pattern.end, found, path);
        const Item& list = items_[found];
        if (list.size > pattern.count)
            add(path, "expected at most ", std::to_string(pattern.count), " items in the list, found ",
                std::to_string(list.size));
        if (pattern.end == wanted + 1)
            return;
        std::size_t position = 0;
        for (std::size_t member = found + 1; member < list.end && !isFull(); member = items_[member].end)
            compareItem(wanted + 1, member, pathBelow(path, ++position));
    }

    void compareMembers(std::size_t first, std::size_t end, std::size_t found, const std::string& path) {
        const Item& list = items_[found];
        if (list.format != Format::List)
            return add(path, "expected a list, found ", formatText(list.format));
        std::size_t members = 0;
        for (std::size_t at = first; at < end; at = pattern_[at].end)
            ++members;
        if (members != list.size)
            return add(path, "expected a list of ", std::to_string(members), " items, found ",
                       std::to_string(list.size));
        std::size_t position = 0;
        std::size_t wanted = first;
        for (std::size_t member = found + 1; member < list.end && !isFull();
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

} // namespace zb::rehearsal
