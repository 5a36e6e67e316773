#include "model/condition_text.h"

#include "platform/number.h"
#include "platform/text.h"

#include <unordered_set>
#include <vector>

namespace zb {

namespace {

/// A complex condition taken apart.
struct Operands {
    std::string_view left;
    std::string_view word;
    std::string_view right;
};

/// Only the second word decides; a simple condition has its comparison there.
std::optional<Operands> operandsOf(std::string_view condition) {
    const std::size_t first = condition.find(' ');
    if (first == std::string_view::npos)
        return std::nullopt;
    const std::size_t second = condition.find(' ', first + 1);
    if (second == std::string_view::npos)
        return std::nullopt;
    const std::string_view word = condition.substr(first + 1, second - first - 1);
    if (word != "and" && word != "or")
        return std::nullopt;
    return Operands{condition.substr(0, first), word, condition.substr(second + 1)};
}

/// The remaining work, the next piece last: write a text, expand an id, or leave a finished one.
struct Piece {
    enum class Kind { Text, Id, Done };
    Kind kind;
    std::string text;
};

} // namespace

// Without recursion: a chain of conditions may have any length.
std::optional<std::string> expandCondition(std::string_view condition, const ConditionLookup& conditionOfId) {
    std::string result;
    std::vector<Piece> open;
    std::unordered_set<std::string> within; // the ids whose conditions are being written
    const auto begin = [&](std::string_view text) {
        result += '(';
        if (const std::optional<Operands> parts = operandsOf(text)) {
            open.push_back({Piece::Kind::Text, ")"});
            open.push_back({Piece::Kind::Id, std::string(parts->right)});
            open.push_back({Piece::Kind::Text, " " + std::string(parts->word) + " "});
            open.push_back({Piece::Kind::Id, std::string(parts->left)});
        } else {
            result.append(text).append(")");
        }
    };
    if (condition.empty())
        return std::nullopt;
    begin(condition);
    while (!open.empty()) {
        const Piece piece = std::move(open.back());
        open.pop_back();
        if (piece.kind == Piece::Kind::Text) {
            result += piece.text;
        } else if (piece.kind == Piece::Kind::Done) {
            within.erase(piece.text);
        } else {
            const std::string found = conditionOfId(piece.text);
            if (found.empty() || !within.insert(piece.text).second)
                return std::nullopt;
            open.push_back({Piece::Kind::Done, piece.text});
            begin(found);
        }
        if (result.size() > kLongestCondition)
            return std::nullopt;
    }
    return result;
}

ConditionValueForm conditionValueForm(std::string_view itemType) {
    // Binary values are quoted here, though nowhere else.
    if (itemType == "B" || itemType == "A" || itemType == "J" || itemType == "X")
        return ConditionValueForm::Quoted;
    return itemType == "BOOLEAN" ? ConditionValueForm::Boolean : ConditionValueForm::Numeric;
}

bool isConditionValue(ConditionValueForm form, std::string_view text) {
    switch (form) {
    case ConditionValueForm::Quoted:
        return true;
    case ConditionValueForm::Boolean:
        return equalsIgnoringCase(text, "TRUE") || equalsIgnoringCase(text, "FALSE");
    case ConditionValueForm::Numeric:
        return isNumeric(text);
    }
    return false;
}

std::string simpleCondition(std::string_view dataItem, std::string_view comparison, std::string_view value) {
    std::string text = "{";
    text.append(dataItem).append("} ").append(comparison).append(" ").append(value);
    return text;
}

} // namespace zb
