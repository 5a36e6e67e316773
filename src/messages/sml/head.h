#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace zb::sml {

// Where a message begins.
struct Head {
    std::string_view name; // before the colon; empty without one
    bool named = false;    // a colon was there
    bool quoted = false;
    bool bracketed = false; // "<S2F33 W>"
    bool wait = false;      // only of the forms that hold it inside
    long stream = 0;        // as written, which may be out of range
    long function = 0;
    std::size_t end = 0; // behind the function's number, or what closes it
};

// The head that begins at `offset`, if one does: "S1F1", "'S1F1'", "<S1F1 W>", "Name: S1F1", "Name :'S1F1'".
std::optional<Head> headAt(std::string_view text, std::size_t offset);

// The direction that the words of a comment or a head tell: "H->E", "H<-E", "H<->E", blanks allowed within;
// empty for any other words.
std::string_view directionOf(std::string_view words);

} // namespace zb::sml
