#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

// A pattern that a whole text may match:
//   *       any run of characters, line ends included, also none
//   ?       one character
//   #       one digit, 0 to 9
//   [A-F]   one character of the set; [!0] one character outside of it
// Inside brackets "-" first or last, "!" anywhere but first, and the other marks stand for themselves; "[!]"
// is a
// "!", and "[]" matches nothing at all, the empty run. Outside of brackets "]" stands for itself. Comparison
// is exact.
class WildcardPattern {
public:
    // Nothing for a pattern that cannot be meant: a bracket that is not closed, a range that runs downwards.
    static std::optional<WildcardPattern> compile(std::string_view pattern);

    // Takes time in proportion to pattern times text at worst.
    bool matches(std::string_view text) const;

private:
    enum class Kind { run, literal, anyCharacter, digit, set };
    struct Range {
        char32_t first;
        char32_t last;
    };
    struct Element {
        Kind kind = Kind::run;
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

// The match with "*:*", which tells a message node from its description.
inline bool hasColon(std::string_view text) {
    return text.find(':') != std::string_view::npos;
}

} // namespace zb
