#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// A pattern for a whole text:
///   *       any run of characters, line ends included, also none
///   ?       one character
///   #       one digit, 0 to 9
///   [A-F]   one character of the set; [!0] one character outside of it
/// Inside brackets "-" as the first or last character, "!" except as the first, and the other special
/// characters are literal; "[!]" is a "!", and "[]" matches only the empty text. Outside of brackets "]" is
/// literal. Comparison is exact.
class WildcardPattern {
public:
    /// Nothing for an invalid pattern: a bracket that is not closed, or a descending range.
    static std::optional<WildcardPattern> compile(std::string_view pattern);

    /// The time is at worst proportional to pattern times text.
    bool matches(std::string_view text) const;

private:
    enum class Kind { Run, Literal, AnyCharacter, Digit, Set };
    struct Range {
        char32_t first;
        char32_t last;
    };
    struct Element {
        Kind kind = Kind::Run;
        std::string literal;
        std::vector<Range> ranges;
        bool negated = false;
    };

    static std::optional<Element> parseSet(std::u32string_view inside);
    void addLiteral(std::u32string_view characters);
    void addElement(Kind kind);
    static std::optional<std::size_t> step(const Element& element, std::string_view text,
                                           std::size_t position);

    std::vector<Element> elements_;
};

/// The match with "*:*", which distinguishes a message node from its description.
inline bool hasColon(std::string_view text) {
    return text.find(':') != std::string_view::npos;
}

} // namespace zb
