#pragma once

#include "generate/language.h"
#include "generate/message_shape.h"
#include "platform/code_page.h"

#include <string>
#include <string_view>

namespace zb::generate {

/// The values of a project as expressions of a language.
class ValueLiterals {
public:
    ValueLiterals(const Language& language, const CodePage& codePage)
        : language_(language), codePage_(codePage) {}

    /// The value of an item that is no list: as many values as its count allows, zeros for those that are
    /// missing, each within the range of its type.
    std::string initialValue(const ItemTree& item) const;
    /// A text of the project as the bytes that a message carries.
    std::string messageText(std::string_view text) const;
    /// A text that received values are compared with. A text that no message can carry equals nothing.
    std::string comparedText(std::string_view text) const;
    /// A name, or another text that is only shown.
    std::string shownText(std::string_view text) const;
    std::string truth(bool value) const { return language_.word(value ? "truth" : "untruth"); }
    /// A text as the rest of a comment of the language.
    std::string comment(std::string_view text) const;
    /// The name of a method: its first letter is that of the language.
    std::string method(std::string name) const;

    /// Whether a word means true.
    static bool isTrue(std::string_view word);

private:
    std::string textValue(const ItemTree& item) const;
    std::string literalOf(const std::string& pattern, const std::string& value) const;
    std::string oneValue(const ItemTree& item, std::string_view word) const;

    const Language& language_;
    const CodePage& codePage_;
};

/// Whether the value of an item has the count and the form that its definition asks for.
bool hasFittingValue(const ItemTree& item);

/// A text as the rest of a comment line: no line ends, no control characters, no marks that change how the
/// line is shown, and no backslash, which continues or escapes comments in some languages.
std::string commentText(std::string_view text);

} // namespace zb::generate
