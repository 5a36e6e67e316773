#pragma once

#include "platform/code_page.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace zb::sml {

/// Collects the value of a text item from its strings and character codes, in the form that an item Text can
/// hold: one line, without an apostrophe, since there is no escape for it.
class TextValue {
public:
    explicit TextValue(const CodePage& codePage) : codePage_(codePage) {}

    void begin();
    void appendText(std::string_view text);
    void appendCharacter(char c) { appendText({&c, 1}); }
    /// A character code from 0 to 255.
    void appendCode(unsigned char code);
    /// A backslash was read that may be the first half of an escape.
    void sawBackslash() { backslash_ = true; }
    /// Ends the value. When the declared count fits only the value with its escapes resolved, they are
    /// resolved; in all other cases a backslash is an ordinary character.
    void end(const std::size_t* declaredCount);

    const std::string& text() const { return text_; }
    std::size_t ansiLength() const { return ansiLength_; }
    bool changedApostrophe() const { return apostrophe_; }
    bool changedControl() const { return control_; }
    bool resolvedEscapes() const { return resolved_; }

private:
    void flushBytes();
    std::size_t measure(std::string_view text) const;

    const CodePage& codePage_;
    std::string text_;
    std::string bytes_; // codes above 127, which may be halves of one character
    std::size_t ansiLength_ = 0;
    bool apostrophe_ = false;
    bool control_ = false;
    bool backslash_ = false;
    bool resolved_ = false;
};

} // namespace zb::sml
