#include "lint/transaction_rules.h"

#include "lint/rule.h"
#include "lint/rule_context.h"
#include "model/condition.h"
#include "model/condition_text.h"
#include "model/statement.h"
#include "model/tr_message_record.h"
#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <vector>

namespace zb {

namespace {

/// Calls `visit` with each condition of the TR message and of its statements, and the place of it.
template<typename Visit>
void visitConditions(const TRMessageContext& context, Visit visit) {
    const TRMessageRecord& record = context.record;
    if (!context.isReceived)
        return;
    visit(Condition::parse(record.Condition()), FindingPlace::inTRMessage(record.Name(), {}));
    for (const auto& item : record.TRItems()) {
        const std::vector<Statement> statements = statementsOf(*item);
        for (const Statement* statement : flatStatements(statements))
            visit(statement->condition, FindingPlace::inTRMessage(record.Name(), item->Name()));
    }
}

const CheckedItem* findItem(const CheckedMessage& message, std::string_view name) {
    const auto found = std::find_if(message.items.begin(), message.items.end(),
                                    [&](const CheckedItem& item) { return item.record.getName() == name; });
    return found == message.items.end() ? nullptr : &*found;
}

/// Bytes are between apostrophes, as decimal or hexadecimal numbers.
bool isBytes(std::string_view text) {
    const std::vector<std::string> words = splitAtBlanks(text);
    return std::all_of(words.begin(), words.end(), [](const std::string& word) {
        return isNumeric(word) || upper(word).starts_with("0X");
    });
}

/// What is wrong with the value of a comparison; empty when it is of the item's kind.
std::string kindFault(const Comparison& comparison, const CheckedItem& item) {
    const std::string& type = item.record.getType();
    if (type == "X" || itemKind(type) == ItemKind::Unknown)
        return {};
    const ConditionValueForm form = conditionValueForm(type);
    const bool wantsText = form == ConditionValueForm::Quoted;
    const bool isByteFault = type == "B" && comparison.hasTextValue() && !isBytes(comparison.plainValue());
    if (wantsText == comparison.hasTextValue() && isConditionValue(form, comparison.plainValue()) &&
        !isByteFault)
        return {};
    const std::string_view wanted = isByteFault                           ? "a byte"
                                    : wantsText                           ? "a text between apostrophes"
                                    : form == ConditionValueForm::Boolean ? "TRUE or FALSE"
                                                                          : "a number";
    return "\"" + item.record.getName() + "\" is " + type + " and is compared with " + comparison.value +
           ", which is not " + std::string(wanted);
}

void checkIndex(const TRMessageContext& context, const DataItemAddress& address, const FindingPlace& place,
                Report& report) {
    const std::string name = address.name();
    const CheckedItem* item = findItem(context.definition, name);
    if (item == nullptr)
        return;
    const std::size_t needed = context.definition.variableListsAround(*item);
    const std::size_t found = address.indexes().size();
    // The windows count the lists in a simpler way, and write as many indexes.
    const int counted = checkDimension(context.secsMessage, name);
    if (found == needed || (counted > 0 && found == static_cast<std::size_t>(counted)))
        return;
    const auto indexes = [](std::size_t count) {
        return count == 0 ? std::string("no index")
                          : std::to_string(count) + (count == 1 ? " index" : " indexes");
    };
    report.tell(place, "\"" + address.text() + "\" has " + indexes(found) + ", and there " +
                           (needed == 1 ? "is " : "are ") + std::to_string(needed) + " variable list" +
                           (needed == 1 ? "" : "s") + " around the item");
}

} // namespace

void checkConditionForms(const TRMessageContext& context, Report& report) {
    visitConditions(context, [&](const Condition& condition, const FindingPlace& place) {
        if (condition.faultAt() && !isDefaultCondition(condition.text()))
            report.tell(
                place,
                "The condition cannot be understood from its character " +
                    std::to_string(
                        codePointCount(std::string_view(condition.text()).substr(0, *condition.faultAt())) +
                        1) +
                    " on");
    });
}

void checkConditionKinds(const TRMessageContext& context, Report& report) {
    visitConditions(context, [&](const Condition& condition, const FindingPlace& place) {
        for (const ConditionNode& node : condition.nodes()) {
            const auto* comparison = std::get_if<Comparison>(&node);
            const CheckedItem* item =
                comparison == nullptr ? nullptr : findItem(context.definition, comparison->item.name());
            if (item == nullptr)
                continue;
            if (std::string fault = kindFault(*comparison, *item); !fault.empty())
                report.tell(place, std::move(fault));
        }
    });
}

void checkIndexes(const TRMessageContext& context, Report& report) {
    std::vector<std::pair<std::string, std::string>> reported; // TR item and address
    const auto check = [&](const DataItemAddress& address, const FindingPlace& place) {
        const std::pair key(place.item, address.text());
        if (std::find(reported.begin(), reported.end(), key) != reported.end())
            return;
        reported.push_back(key);
        checkIndex(context, address, place, report);
    };
    visitConditions(context, [&](const Condition& condition, const FindingPlace& place) {
        for (const DataItemAddress& address : condition.dataItems())
            check(address, place);
    });
    if (!context.isReceived)
        return;
    for (const auto& item : context.record.TRItems())
        if (!isBlank(item->Value()))
            check(DataItemAddress(item->Value()),
                  FindingPlace::inTRMessage(context.record.Name(), item->Name()));
}

} // namespace zb
