#include "rehearsal/item_rows.h"

#include "platform/printable.h"
#include "platform/text.h"
#include "rehearsal/item_value.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace zb::rehearsal {

namespace {

using secs2::Format;
using secs2::Item;
using secs2::Items;

constexpr std::size_t kLongestValue = 200;
/// Longer lists are matched by position: a match by format takes time in proportion to the square.
constexpr std::size_t kLongestMatched = 200;

std::string shortened(std::string text) {
    if (text.size() > kLongestValue)
        text = sanitizeUtf8(std::string_view(text).substr(0, kLongestValue)) + "...";
    return printable(text);
}

std::string describe(const Items& items, const Item& item, const CodePage& codePage) {
    std::string text = std::string(secs2::traitsOf(item.format).word) + " " +
                       std::to_string(item.format == Format::List ? item.size : Items::count(item));
    if (item.format == Format::List || Items::count(item) == 0)
        return text;
    const bool isText = secs2::traitsOf(item.format).kind == secs2::ValueKind::Text;
    const std::string value = shortened(itemText(items, item, codePage));
    return text + (isText ? " '" + value + "'" : " " + value);
}

std::string describe(const PatternItem& item) {
    std::string text = item.format ? std::string(secs2::traitsOf(*item.format).word) : "X";
    text += " " + std::to_string(item.count) + (item.isFixed ? "" : "V");
    if (!item.name.empty())
        text += " " + item.name;
    return item.isKey ? text + " = " + shortened(item.value) + " [K]" : text;
}

/// The members of a list that have the same definition, or none, on either side.
using MemberPair = std::pair<std::optional<std::size_t>, std::optional<std::size_t>>;

/// Walks through a message and its definition together.
class ItemRows {
public:
    ItemRows(const Items& items, const MessagePattern* pattern, const CodePage& codePage, std::size_t most)
        : items_(items), pattern_(pattern), codePage_(codePage), most_(most) {}

    std::vector<ItemRow> run() {
        if (pattern_ == nullptr) {
            if (!items_.empty())
                addFound(0, 0, ItemRow::Sign::Same);
        } else if (pattern_->hasImplicitList()) {
            addImplicitList();
        } else {
            const bool isDefined = !pattern_->items().empty();
            addPair({isDefined ? std::optional<std::size_t>(0) : std::nullopt,
                     items_.empty() ? std::nullopt : std::optional<std::size_t>(0)},
                    0);
        }
        return std::move(rows_);
    }

private:
    bool isFull() const { return rows_.size() >= most_; }
    void add(ItemRow row) {
        if (!isFull())
            rows_.push_back(std::move(row));
    }

    void addImplicitList() {
        const auto difference = pattern_->differenceOfRoot(items_);
        add({0, difference ? ItemRow::Sign::Differs : ItemRow::Sign::Same,
             items_.empty() ? std::string() : describe(items_, items_[0], codePage_), "L",
             difference ? difference->text : std::string()});
        const bool isList = !items_.empty() && items_[0].format == Format::List;
        for (const MemberPair& pair : pairsOf(0, pattern_->items().size(), isList ? membersOf(0) : none()))
            addPair(pair, 1);
    }

    void addPair(const MemberPair& pair, std::size_t level) {
        if (isFull())
            return;
        if (pair.first && pair.second)
            addBoth(*pair.first, *pair.second, level);
        else if (pair.first)
            addMissing(*pair.first, level);
        else if (pair.second)
            addFound(*pair.second, level, ItemRow::Sign::Surplus);
    }

    void addBoth(std::size_t wanted, std::size_t found, std::size_t level) {
        const PatternItem& defined = pattern_->items()[wanted];
        const Item& item = items_[found];
        const auto difference = pattern_->differenceOfItem(wanted, items_, item, codePage_);
        add({level, difference ? ItemRow::Sign::Differs : ItemRow::Sign::Same,
             describe(items_, item, codePage_), describe(defined),
             difference ? printable(difference->text) : std::string()});
        if (item.format != Format::List)
            return;
        const bool isSameFormat = defined.format == Format::List;
        if (isSameFormat && !defined.isFixed && defined.end > wanted + 1) {
            for (const std::size_t member : membersOf(found))
                addPair({wanted + 1, member}, level + 1);
        } else if (isSameFormat && defined.isFixed) {
            for (const MemberPair& pair : pairsOf(wanted + 1, defined.end, membersOf(found)))
                addPair(pair, level + 1);
        } else {
            for (const std::size_t member : membersOf(found))
                addFound(member, level + 1, ItemRow::Sign::Same);
        }
    }

    void addMissing(std::size_t wanted, std::size_t level) {
        const PatternItem& defined = pattern_->items()[wanted];
        add({level, ItemRow::Sign::Missing, {}, describe(defined), "is missing"});
        for (std::size_t at = wanted + 1; at < defined.end && !isFull(); at = pattern_->items()[at].end)
            addMissing(at, level + 1);
    }

    void addFound(std::size_t found, std::size_t level, ItemRow::Sign sign) {
        add({level,
             sign,
             describe(items_, items_[found], codePage_),
             {},
             sign == ItemRow::Sign::Surplus ? "is not defined" : ""});
        if (items_[found].format != Format::List)
            return;
        for (const std::size_t member : membersOf(found))
            if (!isFull())
                addFound(member, level + 1, sign);
    }

    static std::vector<std::size_t> none() { return {}; }

    std::vector<std::size_t> membersOf(std::size_t list) const {
        std::vector<std::size_t> members;
        for (std::size_t member = list + 1; member < items_[list].end; member = items_[member].end)
            members.push_back(member);
        return members;
    }

    /// The definitions from `first` to `end` beside the members. When they are not as many, the longest
    /// common run of formats decides what belongs together.
    std::vector<MemberPair> pairsOf(std::size_t first, std::size_t end,
                                    const std::vector<std::size_t>& found) const {
        std::vector<std::size_t> wanted;
        for (std::size_t at = first; at < end; at = pattern_->items()[at].end)
            wanted.push_back(at);
        std::vector<MemberPair> pairs;
        if (wanted.size() == found.size() || wanted.size() > kLongestMatched ||
            found.size() > kLongestMatched) {
            for (std::size_t i = 0; i < std::max(wanted.size(), found.size()); ++i)
                pairs.emplace_back(i < wanted.size() ? std::optional(wanted[i]) : std::nullopt,
                                   i < found.size() ? std::optional(found[i]) : std::nullopt);
            return pairs;
        }
        return matched(wanted, found);
    }

    bool isAlike(std::size_t wanted, std::size_t found) const {
        const auto difference = pattern_->differenceOfItem(wanted, items_, items_[found], codePage_);
        return !difference || (difference->kind == Difference::Kind::Structure &&
                               pattern_->items()[wanted].format == items_[found].format);
    }

    std::vector<MemberPair> matched(const std::vector<std::size_t>& wanted,
                                    const std::vector<std::size_t>& found) const {
        const std::size_t width = found.size() + 1;
        std::vector<std::uint16_t> common((wanted.size() + 1) * width);
        for (std::size_t i = wanted.size(); i-- > 0;)
            for (std::size_t j = found.size(); j-- > 0;)
                common[i * width + j] =
                    isAlike(wanted[i], found[j])
                        ? static_cast<std::uint16_t>(common[(i + 1) * width + j + 1] + 1)
                        : std::max(common[(i + 1) * width + j], common[i * width + j + 1]);
        std::vector<MemberPair> pairs;
        std::size_t i = 0;
        std::size_t j = 0;
        while (i < wanted.size() || j < found.size()) {
            const bool both = i < wanted.size() && j < found.size() && isAlike(wanted[i], found[j]);
            const bool isMissing =
                !both && (j == found.size() ||
                          (i < wanted.size() && common[(i + 1) * width + j] >= common[i * width + j + 1]));
            pairs.emplace_back(both || isMissing ? std::optional(wanted[i++]) : std::nullopt,
                               both || !isMissing ? std::optional(found[j++]) : std::nullopt);
        }
        return pairs;
    }

    const Items& items_;
    const MessagePattern* pattern_;
    const CodePage& codePage_;
    std::size_t most_;
    std::vector<ItemRow> rows_;
};

} // namespace

std::vector<ItemRow> itemRows(const Items& items, const MessagePattern* pattern, const CodePage& codePage,
                              std::size_t most) {
    return ItemRows(items, pattern, codePage, most).run();
}

} // namespace zb::rehearsal
