#include "model/condition.h"

#include "platform/text.h"

#include <algorithm>
#include <utility>

namespace zb {

namespace {

constexpr std::string_view kOpening = "({";
constexpr std::string_view kEqual = "} == ";
constexpr std::string_view kNotEqual = "} != ";
constexpr std::string_view kAnd = " and ";
constexpr std::string_view kOr = " or ";
constexpr std::string_view kNone = "NONE";

bool isText(std::string_view value) {
    return value.size() >= 2 && value.front() == '\'' && value.back() == '\'';
}

/// The end of the value at `from`: before the parenthesis that closes its comparison. A text may contain
/// parentheses; it ends with an apostrophe.
std::size_t endOfValue(std::string_view text, std::size_t from) {
    if (from >= text.size() || text[from] != '\'')
        return text.find(')', from);
    const std::size_t apostrophe = text.find("')", from + 1);
    return apostrophe == std::string_view::npos ? apostrophe : apostrophe + 1;
}

/// A comparison and the place after its closing parenthesis.
struct FoundComparison {
    Comparison comparison;
    std::size_t end = 0;
    bool isClosed = true;
};

/// Reads the comparison whose opening is at `at`. Nothing when it has no operator.
std::optional<FoundComparison> readComparison(std::string_view text, std::size_t at) {
    const std::size_t name = at + kOpening.size();
    std::size_t end = text.find('}', name);
    while (end != std::string_view::npos && !text.substr(end).starts_with(kEqual) &&
           !text.substr(end).starts_with(kNotEqual))
        end = text.find('}', end + 1);
    if (end == std::string_view::npos)
        return std::nullopt;
    const std::size_t value = end + kEqual.size();
    const std::size_t closing = endOfValue(text, value);
    const bool isClosed = closing != std::string_view::npos;
    Comparison comparison{DataItemAddress(std::string(text.substr(name, end - name))),
                          text.substr(end).starts_with(kEqual),
                          std::string(text.substr(value, isClosed ? closing - value : closing))};
    return FoundComparison{std::move(comparison), isClosed ? closing + 1 : text.size(), isClosed};
}

/// Reads a condition without recursion, since a chain of conditions may be as long as the user likes.
class ConditionParser {
public:
    explicit ConditionParser(std::string_view text) : text_(text) {}

    /// The nodes; nothing for a text that is no condition.
    std::optional<std::vector<ConditionNode>> run() {
        while (readOperand()) {
            while (!open_.empty() && open_.back().left) {
                if (!take(")"))
                    return std::nullopt;
                close();
            }
            if (open_.empty())
                return at_ == text_.size() ? std::optional(std::move(nodes_)) : std::nullopt;
            if (!readWord())
                return std::nullopt;
        }
        return std::nullopt;
    }

    std::size_t at() const { return at_; }

private:
    /// A junction whose right side is still to come; without a left side, both are.
    struct OpenJunction {
        std::optional<std::size_t> left;
        Junction::Word word = Junction::Word::And;
    };

    bool take(std::string_view expected) {
        if (!text_.substr(at_).starts_with(expected))
            return false;
        at_ += expected.size();
        return true;
    }

    /// Reads on until after the next comparison.
    bool readOperand() {
        while (!text_.substr(at_).starts_with(kOpening)) {
            if (!take("("))
                return false;
            open_.emplace_back();
        }
        auto found = readComparison(text_, at_);
        if (!found || !found->isClosed)
            return false;
        at_ = found->end;
        nodes_.emplace_back(std::move(found->comparison));
        return true;
    }

    bool readWord() {
        OpenJunction& junction = open_.back();
        junction.word = text_.substr(at_).starts_with(kAnd) ? Junction::Word::And : Junction::Word::Or;
        junction.left = nodes_.size() - 1;
        return take(junction.word == Junction::Word::And ? kAnd : kOr);
    }

    void close() {
        const OpenJunction& junction = open_.back();
        nodes_.emplace_back(Junction{junction.word, *junction.left, nodes_.size() - 1});
        open_.pop_back();
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::vector<ConditionNode> nodes_;
    std::vector<OpenJunction> open_;
};

/// What is still to be printed, the next piece last.
using Piece = std::variant<std::size_t, std::string_view>;

void printComparison(std::string& text, const Comparison& comparison) {
    text.append(kOpening).append(comparison.item.text());
    text.append(comparison.isEqual ? kEqual : kNotEqual).append(comparison.value).append(")");
}

/// The comparisons of a text that is no condition as a whole.
std::vector<DataItemAddress> scanDataItems(std::string_view text) {
    std::vector<DataItemAddress> items;
    for (std::size_t at = text.find(kOpening); at != std::string_view::npos; at = text.find(kOpening, at)) {
        auto found = readComparison(text, at);
        if (!found)
            break;
        items.push_back(std::move(found->comparison.item));
        at = found->end;
    }
    return items;
}

} // namespace

bool Comparison::hasTextValue() const {
    return isText(value);
}

std::string_view Comparison::plainValue() const {
    const std::string_view text = value;
    return isText(text) ? text.substr(1, text.size() - 2) : text;
}

Condition Condition::parse(std::string_view text) {
    Condition condition;
    condition.text_ = text;
    ConditionParser parser(text);
    if (auto nodes = parser.run())
        condition.nodes_ = std::move(*nodes);
    else
        condition.faultAt_ = parser.at();
    return condition;
}

std::string Condition::print() const {
    if (nodes_.empty())
        return text_;
    std::string text;
    std::vector<Piece> open{nodes_.size() - 1};
    while (!open.empty()) {
        const Piece piece = open.back();
        open.pop_back();
        if (const auto* words = std::get_if<std::string_view>(&piece)) {
            text += *words;
            continue;
        }
        const ConditionNode& node = nodes_[std::get<std::size_t>(piece)];
        if (const auto* comparison = std::get_if<Comparison>(&node)) {
            printComparison(text, *comparison);
            continue;
        }
        const auto& junction = std::get<Junction>(node);
        text += '(';
        open.insert(open.end(),
                    {")", junction.right, junction.word == Junction::Word::And ? kAnd : kOr, junction.left});
    }
    return text;
}

std::vector<DataItemAddress> Condition::dataItems() const {
    if (faultAt_)
        return scanDataItems(text_);
    std::vector<DataItemAddress> items;
    for (const ConditionNode& node : nodes_) {
        if (const auto* comparison = std::get_if<Comparison>(&node))
            items.push_back(comparison->item);
    }
    return items;
}

bool isDefaultCondition(std::string_view condition) {
    const std::string_view text = trimmed(condition);
    return text.empty() || text == kNone;
}

} // namespace zb
