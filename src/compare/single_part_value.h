#pragma once

#include "compare/part_form.h"
#include "compare/part_value.h"

#include <optional>
#include <string>
#include <string_view>

namespace zb {

/// Why a value cannot be set, as a sentence.
struct ValueFault {
    std::string text;
};

/// Reads and sets a value of one part, whose lines are given.
class SinglePartValue {
public:
    SinglePartValue(const PartForm& form, const ValuePlace& at) : form_(form), at_(at) {}

    std::optional<std::string> read(std::string_view block) const;
    /// The lines of the part.
    Result<std::string, ValueFault> set(std::string_view block, const std::optional<std::string>& value);

private:
    using Text = std::optional<std::string>;

    bool isTreePath() const;
    Text fieldOf(const Entry& entry) const;
    const Entry* partOf(const Entry& entry) const;
    Text partValue(const Entry& entry, const Entry& part) const;
    void setField(Entry& entry, const Text& value);
    void setItems(Entry& entry, const std::string& text) const;
    void setEntryField(Entry& entry, const std::string& value);
    void setPart(Entry& entry, std::size_t part, const Text& value);
    void movePart(Entry& entry, std::size_t part, const Text& value);
    void addPart(Entry& entry, const Text& value);
    void setItem(Entry& entry, const Text& value);

    const PartForm& form_;
    const ValuePlace& at_;
    std::string fault_;
};

/// The number in a position, which may be a path; 0 for none.
std::size_t numberOfPosition(const std::optional<std::string>& position);

} // namespace zb
