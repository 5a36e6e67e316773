#include "platform/wildcard.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace zb {

void WildcardPattern::addLiteral(std::u32string_view characters) {
    if (elements_.empty() || elements_.back().kind != Kind::Literal)
        elements_.push_back({Kind::Literal, {}, {}, false});
    elements_.back().literal += fromCodePoints(characters);
}

void WildcardPattern::addElement(Kind kind) {
    const bool repeatedRun = kind == Kind::Run && !elements_.empty() && elements_.back().kind == Kind::Run;
    if (!repeatedRun)
        elements_.push_back({kind, {}, {}, false});
}

std::optional<WildcardPattern::Element> WildcardPattern::parseSet(std::u32string_view inside) {
    Element set{Kind::Set, {}, {}, false};
    if (inside.front() == U'!') {
        set.negated = true;
        inside.remove_prefix(1);
    }
    for (std::size_t i = 0; i < inside.size();) {
        const bool range = i + 2 < inside.size() && inside[i + 1] == U'-';
        const char32_t last = range ? inside[i + 2] : inside[i];
        if (last < inside[i])
            return std::nullopt;
        set.ranges.push_back({inside[i], last});
        i += range ? 3 : 1;
    }
    return set;
}

std::optional<WildcardPattern> WildcardPattern::compile(std::string_view pattern) {
    WildcardPattern compiled;
    const std::u32string points = codePoints(pattern);
    const std::u32string_view view = points;
    for (std::size_t i = 0; i < view.size(); ++i) {
        switch (view[i]) {
        case U'*':
            compiled.addElement(Kind::Run);
            break;
        case U'?':
            compiled.addElement(Kind::AnyCharacter);
            break;
        case U'#':
            compiled.addElement(Kind::Digit);
            break;
        case U'[': {
            const std::size_t close = view.find(U']', i + 1);
            if (close == std::u32string_view::npos)
                return std::nullopt;
            const std::u32string_view inside = view.substr(i + 1, close - i - 1);
            if (inside == U"!") {
                compiled.addLiteral(inside);
            } else if (!inside.empty()) {
                std::optional<Element> set = parseSet(inside);
                if (!set)
                    return std::nullopt;
                compiled.elements_.push_back(std::move(*set));
            }
            i = close;
            break;
        }
        default:
            compiled.addLiteral(view.substr(i, 1));
        }
    }
    return compiled;
}

// The position after the part of the text that the element matches at `position`; nothing when it does not
// match.
std::optional<std::size_t> WildcardPattern::step(const Element& element, std::string_view text,
                                                 std::size_t position) {
    if (element.kind == Kind::Literal) {
        const bool fits = text.substr(position).starts_with(element.literal);
        return fits ? std::optional(position + element.literal.size()) : std::nullopt;
    }
    if (position >= text.size())
        return std::nullopt;
    const DecodedCharacter character = decodeCharacter(text, position);
    const char32_t point = character.codePoint;
    bool fits = true;
    if (element.kind == Kind::Digit) {
        fits = point >= U'0' && point <= U'9';
    } else if (element.kind == Kind::Set) {
        const bool listed =
            std::any_of(element.ranges.begin(), element.ranges.end(),
                        [point](const Range& range) { return range.first <= point && point <= range.last; });
        fits = listed != element.negated;
    }
    return fits ? std::optional(position + character.length) : std::nullopt;
}

// Only the last run is ever shortened: an earlier run could not match more than the later one can. So there
// is no recursion, and no pattern takes exponential time.
bool WildcardPattern::matches(std::string_view text) const {
    std::optional<std::size_t> afterRun;
    std::size_t runEnd = 0;
    std::size_t position = 0;
    std::size_t next = 0;
    while (next < elements_.size() || position < text.size()) {
        if (next < elements_.size() && elements_[next].kind == Kind::Run) {
            if (++next == elements_.size())
                return true;
            afterRun = next;
            runEnd = position;
        } else {
            const auto end = next < elements_.size() ? step(elements_[next], text, position) : std::nullopt;
            if (end) {
                position = *end;
                ++next;
                continue;
            }
            if (!afterRun || runEnd >= text.size())
                return false;
            runEnd += decodeCharacter(text, runEnd).length;
        }
        if (elements_[*afterRun].kind == Kind::Literal) {
            runEnd = text.find(elements_[*afterRun].literal, runEnd);
            if (runEnd == std::string_view::npos)
                return false;
        }
        position = runEnd;
        next = *afterRun;
    }
    return true;
}

} // namespace zb
