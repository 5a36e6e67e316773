#include "lint/transaction_rules.h"

#include "lint/rule.h"
#include "lint/rule_context.h"
#include "model/statement.h"
#include "model/statement_text.h"
#include "model/tr_message_record.h"
#include "platform/text.h"

#include <vector>

namespace zb {

namespace {

/// A line of the statements of a TR item.
struct StatementLine {
    std::string text; ///< without the blanks before it
    std::size_t depth = 0;
    bool isBranch = false; ///< "if", "elif" or "else", and no value
};

std::vector<StatementLine> statementLines(const TRItemRecord& item) {
    std::vector<StatementLine> lines;
    if (isBlank(item.StatementText()) || item.StatementText() == kNoStatements)
        return lines;
    for (const std::string& line : split(item.StatementText(), "\r\n")) {
        if (isBlank(line))
            continue;
        const std::string text = trim(line);
        // An item whose name begins with "if" or "else" has values that look like branches.
        const bool isBranch = lineImage(line) != kItemValueImage && !text.starts_with(item.Name() + "=");
        lines.push_back({text, lineDepth(line), isBranch});
    }
    return lines;
}

/// Calls `visit` with each TR item of a received message and its place.
template<typename Visit>
void visitItems(const TRMessageContext& context, Visit visit) {
    if (!context.isReceived)
        return;
    for (const auto& item : context.record.TRItems())
        visit(*item, FindingPlace::inTRMessage(context.record.Name(), item->Name()));
}

enum class ConditionState { Good, Missing, HasColon };

/// How the TMD file takes the condition of an "if" or "elif": up to the first colon after its parenthesis.
ConditionState conditionState(std::string_view branch) {
    const std::size_t opening = branch.find('(');
    if (opening == std::string_view::npos)
        return ConditionState::Missing;
    const std::size_t colon = branch.find(':', opening);
    if (colon == std::string_view::npos || isBlank(branch.substr(opening, colon - opening)))
        return ConditionState::Missing;
    if (!isBlank(branch.substr(colon + 1)))
        return ConditionState::HasColon;
    const std::string_view inner = trimmed(branch.substr(opening + 1, colon - opening - 1));
    return inner.empty() || inner == ")" ? ConditionState::Missing : ConditionState::Good;
}

/// Tells of each branch whose condition is in this state.
void tellConditions(const TRMessageContext& context, ConditionState state, std::string_view text,
                    Report& report) {
    visitItems(context, [&](const TRItemRecord& item, const FindingPlace& place) {
        for (const StatementLine& line : statementLines(item)) {
            const bool hasCondition = line.isBranch && !line.text.starts_with(kElseImage);
            if (hasCondition && conditionState(line.text) == state)
                report.tell(place, "\"" + line.text + "\" " + std::string(text));
        }
    });
}

} // namespace

void checkItemSources(const TRMessageContext& context, Report& report) {
    visitItems(context, [&](const TRItemRecord& item, const FindingPlace& place) {
        if (isBlank(item.Value()) && isBlank(item.ABSValue()) && statementLines(item).empty() &&
            statementsOf(item).empty())
            report.tell(place, "This TR item has neither a data item nor a value, so it is always empty");
    });
}

void checkStatementResults(const TRMessageContext& context, Report& report) {
    visitItems(context, [&](const TRItemRecord& item, const FindingPlace& place) {
        const std::vector<StatementLine> lines = statementLines(item);
        for (std::size_t at = 0; at < lines.size(); ++at) {
            const bool hasResult = at + 1 < lines.size() && lines[at + 1].depth > lines[at].depth;
            if (lines[at].isBranch && !hasResult)
                report.tell(place, "\"" + lines[at].text + "\" assigns no value");
        }
    });
}

void checkStatementConditions(const TRMessageContext& context, Report& report) {
    tellConditions(context, ConditionState::Missing, "has no condition", report);
}

void checkStatementColons(const TRMessageContext& context, Report& report) {
    tellConditions(context, ConditionState::HasColon,
                   "has a colon in its condition, so that the TMD file has \"NONE\" instead", report);
}

} // namespace zb
