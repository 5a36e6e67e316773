#pragma once

#include "messages/message_record.h"
#include "messages/secs2/items.h"
#include "platform/code_page.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zb::rehearsal {

/// One item of a definition, prepared for comparison. Its position follows that of the list that contains it.
struct PatternItem {
    std::optional<secs2::Format> format; ///< none for an item of any format
    bool isFixed = true;
    bool isKey = false;
    std::size_t count = 0;
    std::string name;
    std::string value;   ///< as in the definition, without apostrophes
    std::size_t end = 0; ///< the index after its subtree

    bool isVariableList() const { return format == secs2::Format::List && !isFixed; }
};

/// How an item of a message differs from its definition.
struct Difference {
    enum class Kind { Structure, Key };
    Kind kind = Kind::Structure;
    std::string path; ///< in the message, as "2/1"; empty for the message itself
    std::string text; ///< "expected a list of 2 items, found one of 3"
};

/// A message definition in the form in which messages are compared with it.
class MessagePattern {
public:
    explicit MessagePattern(const SECSMessageRecord& record);

    const std::vector<PatternItem>& items() const { return items_; }
    /// The index of the last item with the name, compared exactly; nothing when there is none.
    std::optional<std::size_t> find(const std::string& name) const;
    /// The number of key items.
    std::size_t keys() const { return keys_; }

    /// All differences, in the order of the message, at most `most`. None when the message is as defined.
    std::vector<Difference> compare(const secs2::Items& items, const CodePage& codePage,
                                    std::size_t most) const;
    /// How the message as a whole differs from the number of items outside of a list. The path is empty.
    std::optional<Difference> differenceOfRoot(const secs2::Items& items) const;
    /// How one item differs from that of the definition, without the members of a list. The path is empty.
    std::optional<Difference> differenceOfItem(std::size_t index, const secs2::Items& items,
                                               const secs2::Item& item, const CodePage& codePage) const;
    /// The lists around an item of the definition, the outermost first.
    std::vector<std::size_t> listsAround(std::size_t index) const;
    /// Whether the definition has several items outside of a list; they are compared as members of one list.
    bool hasImplicitList() const { return roots_ > 1; }

private:
    std::vector<PatternItem> items_;
    std::size_t roots_ = 0;
    std::size_t keys_ = 0;
};

} // namespace zb::rehearsal
