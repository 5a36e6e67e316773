#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace zb::sml {

/// The start of a message.
struct Head {
    std::string_view name; // before the colon; empty without one
    bool named = false;    // there was a colon
    bool quoted = false;
    bool bracketed = false; // "<S2F33 W>"
    bool wait = false;      // only for the forms that contain it
    long stream = 0;        // as written; may be out of range
    long function = 0;
    std::size_t end = 0; // after the function's number, or what closes it
};

/// The head that starts at `offset`, if there is one: "S1F1", "'S1F1'", "<S1F1 W>", "Name: S1F1", "Name
/// :'S1F1'".
std::optional<Head> headAt(std::string_view text, std::size_t offset);

/// The direction in the words of a comment or a head: "H->E", "H<-E", "H<->E", with blanks allowed inside;
/// empty for any other words.
std::string_view directionOf(std::string_view words);

} // namespace zb::sml
