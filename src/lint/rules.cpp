#include "lint/rule.h"

#include "lint/item_rules.h"
#include "lint/message_rules.h"
#include "lint/model_rules.h"
#include "lint/transaction_rules.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace zb {

namespace {

/// A rule of the checks that report several rules in one walk.
constexpr Rule basic(std::string_view id, RuleCategory category, Severity severity, std::string_view title) {
    return {.id = id, .category = category, .severity = severity, .set = RuleSet::Basic, .title = title};
}

constexpr Rule definitionFault(std::string_view id, std::string_view title) {
    return basic(id, RuleCategory::Definition, Severity::Error, title);
}

constexpr Rule definitionDoubt(std::string_view id, std::string_view title) {
    return basic(id, RuleCategory::Definition, Severity::Warning, title);
}

constexpr Rule modelFault(std::string_view id, std::string_view title) {
    return basic(id, RuleCategory::Model, Severity::Error, title);
}

constexpr Rule modelDoubt(std::string_view id, std::string_view title) {
    return basic(id, RuleCategory::Model, Severity::Warning, title);
}

constexpr Rule ofMessage(std::string_view id, RuleCategory category, std::string_view title,
                         Rule::MessageCheck check) {
    return {.id = id, .category = category, .title = title, .message = check};
}

constexpr Rule ofLink(std::string_view id, RuleCategory category, std::string_view title,
                      Rule::MessageCheck check) {
    return {.id = id, .category = category, .title = title, .link = check};
}

constexpr Rule ofTRMessage(std::string_view id, std::string_view title, Rule::TRMessageCheck check) {
    return {.id = id, .category = RuleCategory::Model, .title = title, .trMessage = check};
}

constexpr Rule ofModel(std::string_view id, std::string_view title, Rule::ModelCheck check) {
    return {.id = id, .category = RuleCategory::Model, .title = title, .model = check};
}

constexpr Rule ofSequences(std::string_view id, std::string_view title, Rule::SequenceCheck check) {
    return {.id = id, .category = RuleCategory::Model, .title = title, .sequences = check};
}

using Category = RuleCategory;

// Sorted by category and id.
constexpr std::array kRules{
    ofLink("key.equal", Category::Definition, "Two messages have the same key value", checkKeysDiffer),
    ofMessage("key.length", Category::Definition, "The text of a key is shorter than its item",
              checkKeyLength),
    ofLink("key.lost", Category::Definition, "A key item has lost its mark", checkKeyKept),
    ofLink("key.missing", Category::Definition, "No key item tells two messages apart", checkToldApart),
    ofMessage("key.repeated", Category::Definition, "The key is within a variable list", checkKeyPlace),
    ofMessage("key.second", Category::Definition, "A message has two key items", checkKeySingle),
    definitionFault("smd.function", "The function is no number from 0 to 255"),
    definitionDoubt("smd.head", "The head of a message is incomplete"),
    definitionDoubt("smd.item.children", "An item that is no list has sub items"),
    definitionFault("smd.item.count", "The count of a list is not that of its items"),
    definitionDoubt("smd.item.form", "The text of an item has not the usual form"),
    definitionFault("smd.item.name", "The name of an item is not correct"),
    definitionFault("smd.item.repeated", "A variable list has several sub items"),
    definitionFault("smd.item.twice", "Two items of a message have one name"),
    definitionFault("smd.item.type", "The type of an item is unknown"),
    definitionFault("smd.item.unnamed", "An item that needs a name has none"),
    definitionFault("smd.item.value", "A value is not of the type of its item"),
    definitionDoubt("smd.line.stray", "A line belongs to no message"),
    definitionDoubt("smd.name.twice", "Two messages have one name"),
    definitionFault("smd.stream", "The stream is no number from 0 to 128"),
    ofMessage("smd.value.length", Category::Definition, "A text or array is longer than its item",
              checkValueLengths),
    ofMessage("smd.value.range", Category::Definition, "A number does not fit into its type",
              checkValueRanges),
    modelDoubt("seq.direction", "A row of a sequence has an old direction"),
    modelFault("seq.empty", "A sequence has no rows"),
    modelFault("seq.message.unknown", "A row of a sequence names no TR message"),
    ofSequences("seq.name.taken", "A sequence has the name of a TR message", checkSequenceNamesFree),
    ofSequences("seq.name.twice", "Two sequences have one name", checkSequenceNamesDiffer),
    ofSequences("seq.reply.order", "A reply is before its primary message, or has none", checkReplyOrder),
    modelFault("seq.row.stray", "A row belongs to no sequence"),
    modelFault("tmd.name", "A name is none that a TMD file can hold"),
    modelFault("tmd.text", "A text has characters that a TMD file cannot hold"),
    ofTRMessage("tr.block.changed", "A data block no longer fits its SECS message", checkBlockFit),
    ofTRMessage("tr.block.code", "A sent value is no code of its item", checkBlockCodes),
    ofTRMessage("tr.block.key", "The key item of a data block has lost its mark", checkBlockKey),
    ofTRMessage("tr.block.length", "A sent text or array is longer than its item", checkBlockLengths),
    modelDoubt("tr.block.moved", "A data block has another stream or function than its SECS message"),
    ofTRMessage("tr.block.range", "A sent number does not fit into its type", checkBlockRanges),
    ofTRMessage("tr.condition.form", "A condition cannot be understood", checkConditionForms),
    ofTRMessage("tr.condition.kind", "An item is compared with a value of another kind", checkConditionKinds),
    ofModel("tr.condition.unreachable", "A TR message can never be chosen", checkReachable),
    ofModel("tr.default.first", "A default is before TR messages with conditions", checkDefaultFirst),
    modelFault("tr.default.twice", "A SECS message has two defaults"),
    modelFault("tr.direction", "A TR message goes to neither side"),
    ofTRMessage("tr.item.index", "An index does not fit the lists around the item", checkIndexes),
    ofTRMessage("tr.item.source", "A TR item has no source and no value", checkItemSources),
    modelFault("tr.item.unknown", "The SECS message has no such data item"),
    modelFault("tr.secs.none", "A TR message has no SECS message"),
    modelFault("tr.secs.unknown", "A TR message names no SECS message of the project"),
    ofTRMessage("tr.statement.colon", "A condition of a statement has a colon", checkStatementColons),
    ofTRMessage("tr.statement.condition", "A statement has no condition", checkStatementConditions),
    ofTRMessage("tr.statement.result", "A statement assigns no value", checkStatementResults),
    ofMessage("std.direction", Category::Standard, "The message does not go this way", checkDirection),
    ofMessage("std.item.code", Category::Standard, "A value is no code of its item", checkItemCodes),
    ofMessage("std.item.format", Category::Standard, "A data item may not have this format",
              checkItemFormats),
    ofMessage("std.item.length", Category::Standard, "A data item is longer than allowed", checkItemLengths),
    ofMessage("std.message.unknown", Category::Standard, "The stream and function are not assigned",
              checkMessageKnown),
    ofLink("std.reply.direction", Category::Standard, "A reply goes the same way as its primary message",
           checkReplyDirection),
    ofLink("std.reply.missing", Category::Standard, "The reply is not defined", checkReplyMissing),
    ofMessage("std.structure", Category::Standard, "The structure is none of the published ones",
              checkStructure),
    ofMessage("std.wait.forbidden", Category::Standard, "W on a message without a reply", checkWaitForbidden),
    ofMessage("std.wait.missing", Category::Standard, "W is missing where a reply is required",
              checkWaitMissing),
    ofMessage("style.item.name", Category::Style, "The name of an item is nearly that of a published one",
              checkItemNames),
};

} // namespace

std::string_view categoryName(RuleCategory category) {
    switch (category) {
    case RuleCategory::Definition:
        return "definition";
    case RuleCategory::Model:
        return "model";
    case RuleCategory::Standard:
        return "standard";
    case RuleCategory::Style:
        return "style";
    }
    return {};
}

std::span<const Rule> allRules() {
    return kRules;
}

const Rule* findRule(std::string_view id) {
    static const std::unordered_map<std::string_view, const Rule*> kById = [] {
        std::unordered_map<std::string_view, const Rule*> byId;
        for (const Rule& rule : kRules)
            byId.emplace(rule.id, &rule);
        return byId;
    }();
    const auto found = kById.find(id);
    return found == kById.end() ? nullptr : found->second;
}

bool selects(std::string_view selector, const Rule& rule) {
    const bool isStart = rule.id.starts_with(selector) &&
                         (rule.id.size() == selector.size() || rule.id[selector.size()] == '.');
    return !selector.empty() && (isStart || selector == categoryName(rule.category));
}

bool selectsAnything(std::string_view selector) {
    return std::any_of(kRules.begin(), kRules.end(),
                       [&](const Rule& rule) { return selects(selector, rule); });
}

} // namespace zb
