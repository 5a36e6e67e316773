#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zb::test {

/// A data item as a simulator holds it. Numbers, booleans and bytes are values; a text is in `text`.
struct StrictItem {
    std::string type;
    std::vector<double> values;
    std::string text;
    std::vector<StrictItem> items;

    bool operator==(const StrictItem&) const = default;
};

struct StrictMessage {
    int stream = 0;
    int function = 0;
    bool wait = false;
    std::vector<StrictItem> items; // one at most

    bool operator==(const StrictMessage&) const = default;
};

/// Reads the core of SML that all readers take, and throws std::runtime_error at the first character of
/// anything else: counts, comments, names, apostrophes, words that are no value of their type, a W-bit on a
/// reply, a second item outside of a list.
std::vector<StrictMessage> readStrictSml(std::string_view text);

} // namespace zb::test
