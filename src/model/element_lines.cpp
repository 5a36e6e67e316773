#include "model/element_lines.h"

#include "messages/item_grammar.h"
#include "model/fact_text.h"
#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace zb {

namespace {

/// No statement is nested deeper, and a deeper element could not be destroyed.
constexpr std::size_t kDeepestElement = 1000;

/// The outermost element of an item's statements.
constexpr const char* kRootName = "Condition";

/// The text up to the closing quotation mark, with escapes; the mark is removed too.
std::string_view takeQuoted(std::string_view& rest) {
    std::size_t end = 0;
    while (end < rest.size() && rest[end] != '"')
        end += rest[end] == '\\' ? 2 : 1;
    end = std::min(end, rest.size());
    const std::string_view quoted = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return quoted;
}

/// Attributes and text of an element; other text is ignored.
void takeContent(std::string_view rest, XmlElement& element) {
    for (rest = trimmed(rest); !rest.empty(); rest = trimmed(rest)) {
        const std::size_t quote = rest.find('"');
        if (quote == std::string_view::npos)
            return;
        std::string_view before = rest.substr(0, quote);
        before = before.substr(before.rfind(' ') + 1); // unknown words before it
        rest.remove_prefix(quote + 1);
        const std::string value = factText(takeQuoted(rest));
        if (before.empty())
            element.setText(value);
        else if (const std::string name = factText(before.substr(0, before.find('='))); isXmlName(name))
            setElementAttribute(element, name, value);
    }
}

std::optional<XmlElement> elementOf(std::string_view text) {
    std::string name = factText(takeWord(text));
    if (!isXmlName(name))
        return std::nullopt;
    XmlElement element(std::move(name));
    takeContent(text, element);
    return element;
}

} // namespace

void ElementLines::take(std::string_view line) {
    const std::string_view number = takeWord(line);
    std::size_t depth = 0;
    std::from_chars(number.data(), number.data() + number.size(), depth);
    std::optional<XmlElement> element = depth == 0 ? std::nullopt : elementOf(line);
    if (!element || (depth == 1 && root_))
        return;
    if (!root_) {
        root_ = depth == 1 ? std::move(*element) : XmlElement(kRootName);
        open_ = {&*root_};
        if (depth == 1)
            return;
    }
    // Everything after the parent in `open_` was inside of its last child, and is complete.
    open_.resize(std::min({depth - 1, open_.size(), kDeepestElement - 1}));
    open_.push_back(&open_.back()->append(std::move(*element)));
}

std::optional<XmlElement> ElementLines::finish() {
    open_.clear();
    return std::exchange(root_, std::nullopt);
}

} // namespace zb
