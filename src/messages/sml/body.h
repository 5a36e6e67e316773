#pragma once

#include "messages/sml/finding_collector.h"
#include "messages/sml/item_type.h"
#include "messages/sml/unique_names.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb::sml {

/// The number of items or characters that an item is declared to hold.
struct Count {
    enum class Kind {
        Absent,
        Fixed,
        UpTo, // at most `number`
        Open, // any number
    };
    Kind kind = Kind::Absent;
    std::size_t number = 0;
};

struct Item {
    ItemType type = ItemType::List;
    Count count;
    bool repeats = false; // a list that continues with items of the shown form
    bool valued = false;  // values were written, even an empty text
    bool key = false;
    bool nameIsGiven = false; // by the language itself, not by a comment
    bool nameIsPlain = false; // a letter, and then letters, digits and underscores
    bool leftOut = false;     // another one of the repeated item of its list
    std::size_t offset = 0;
    std::size_t level = 0;    // from 1
    std::size_t children = 0; // of a list
    std::size_t end = 0;      // the index after its subtree
    std::size_t values = 0;   // the number; for a text its length in the code page
    std::size_t nameBegin = 0, nameLength = 0;
    std::size_t valueBegin = 0, valueLength = 0;
};

/// The items of one message in the order of the text, and their conversion to item Texts.
class Body {
public:
    void clear();
    bool empty() const { return items_.empty(); }

    /// Appends an item below the open lists and returns its index. A list stays open until it is closed.
    std::size_t add(ItemType type, std::size_t offset);
    /// Closes the innermost open list and returns its index.
    std::size_t closeList();
    std::size_t openLists() const { return openLists_.size(); }
    /// There must be one.
    Item& innermostList() { return items_[openLists_.back()]; }

    Item& item(std::size_t index) { return items_[index]; }
    void setName(Item& item, std::string_view name);
    /// The same for a name that is known to be plain.
    void setPlainName(Item& item, std::string_view name);
    void setValue(Item& item, std::string_view value) {
        const std::size_t begin = values_.size();
        values_ += value;
        endValue(item, begin);
    }
    /// A value can also be written piece by piece to the end of all values, and is ended then.
    /// @{
    std::string& values() { return values_; }
    void endValue(Item& item, std::size_t begin) const {
        item.valueBegin = begin;
        item.valueLength = values_.size() - begin;
    }
    /// @}
    std::string_view name(const Item& item) const;
    std::string_view value(const Item& item) const;

    /// One line per item with level, blank, item Text, CR LF. All lists are closed. The view is valid until
    /// the next call. Nothing, with an error among the findings, when an item contains more than a count can
    /// express.
    std::optional<std::string_view> compose(FindingCollector& findings);

private:
    struct Form {
        std::size_t count = 0;
        bool variable = false;
        bool onlyFirstChild = false;
    };
    bool sameStructure(std::size_t left, std::size_t right) const;
    bool childrenAreAlike(std::size_t list) const;
    bool sameValues(std::size_t list) const;
    Form listForm(std::size_t index, FindingCollector& findings) const;
    Form repeatedForm(std::size_t index, std::size_t bound, FindingCollector& findings) const;
    Form valueForm(const Item& item, FindingCollector& findings) const;
    Form templateForm(const Item& item) const;
    /// The view is valid until the next name is requested; the same holds for `nameFor`.
    std::string_view uniqueName(const Item& item, std::string_view wanted, FindingCollector& findings);
    std::string_view nameFor(std::size_t index, const Form& form, FindingCollector& findings);
    /// Writes after the first `used` characters of the lines, and returns how many are used then.
    std::size_t appendLine(std::size_t used, const Item& item, const Form& form, std::string_view name);

    std::vector<Item> items_;
    std::vector<std::size_t> openLists_;
    std::string names_;
    std::string values_;
    std::string lines_; // the composed ones; it keeps its size from message to message
    UniqueNames namesInUse_;
};

} // namespace zb::sml
