#include "rehearsal/interpreter.h"

#include "platform/number.h"
#include "platform/text.h"
#include "rehearsal/item_value.h"

#include <algorithm>

namespace zb::rehearsal {

namespace {

constexpr std::size_t kMostDifferences = 20;

unsigned keyOf(unsigned stream, unsigned function) {
    return stream << 8U | function;
}

/// The branch that applies, searched depth first; null when none does.
const Statement* chosen(const std::vector<Statement>& chain, const ReceivedData& data) {
    const std::vector<Statement>* branches = &chain;
    const Statement* found = nullptr;
    while (branches != nullptr && !branches->empty()) {
        const auto applies =
            std::find_if(branches->begin(), branches->end(), [&](const Statement& statement) {
                return statement.kind == Statement::Kind::Else ||
                       (statement.kind != Statement::Kind::None &&
                        evaluate(data, statement.condition, nullptr));
            });
        if (applies == branches->end())
            return nullptr;
        found = &*applies;
        branches = &found->branches;
    }
    return found;
}

} // namespace

Interpreter::Interpreter(const Project& project, CodePage codePage)
    : codePage_(std::move(codePage)),
      received_(project.side == Side::Host ? Direction::ToHost : Direction::ToEquip) {
    for (SECSMessageRecord& record : project.messages.records()) {
        if (record.getStream() < 0 || record.getFunction() < 0)
            continue;
        MessagePattern pattern(record);
        definitions_.push_back({std::move(record), std::move(pattern), {}, {}});
        const Definition& definition = definitions_.back();
        byStreamFunction_[keyOf(static_cast<unsigned>(definition.record.getStream()),
                                static_cast<unsigned>(definition.record.getFunction()))]
            .push_back(&definition);
    }
    addTransactions(*project.model);
}

void Interpreter::addTransactions(const TRModelStore& model) {
    std::unordered_map<std::string, Definition*> byName;
    for (Definition& definition : definitions_)
        byName.emplace(upper(definition.record.getName()), &definition);
    for (const auto& record : model.TRMessages()) {
        const auto found = byName.find(upper(record->SECSMessage()));
        if (found == byName.end())
            continue;
        if (record->Direction() == model.ReceivedDirection()) {
            addReceived(*found->second, *record);
        } else if (record->Direction() == model.SentDirection()) {
            Sent sent{record.get(), {}};
            if (record->DataBlock())
                for (const SECSItemRecord& item : record->DataBlock()->getItems())
                    sent.values.push_back(item.getType() == "L" ? std::to_string(item.getCount())
                                                                : item.getValue());
            found->second->sent.push_back(std::move(sent));
        }
    }
    for (Definition& definition : definitions_)
        std::stable_partition(definition.received.begin(), definition.received.end(),
                              [](const Branch& branch) { return !branch.isDefault; });
}

void Interpreter::addReceived(Definition& definition, const TRMessageRecord& record) {
    Branch branch;
    branch.record = &record;
    branch.isDefault = isDefaultCondition(record.Condition());
    if (!branch.isDefault)
        branch.condition = Condition::parse(trim(record.Condition()));
    for (const auto& item : record.TRItems())
        branch.items.push_back({item.get(), DataItemAddress(item->Value()), statementsOf(*item)});
    definition.received.push_back(std::move(branch));
}

const std::vector<const Interpreter::Definition*>*
Interpreter::candidates(const secs2::Header& header) const {
    const auto found = byStreamFunction_.find(keyOf(header.stream, header.function));
    return found == byStreamFunction_.end() ? nullptr : &found->second;
}

bool Interpreter::fits(const Definition& definition, Direction direction) {
    const std::string_view arrow = definition.record.getDirection();
    return direction == Direction::Unknown || arrow == arrowOf(direction) ||
           (arrow != "H->E" && arrow != "H<-E");
}

Direction Interpreter::directionOf(const secs2::Header& header) const {
    const auto* const all = candidates(header);
    if (all == nullptr)
        return Direction::Unknown;
    const auto agree = [all](Direction direction) {
        return std::all_of(all->begin(), all->end(), [direction](const Definition* definition) {
            return definition->record.getDirection() == arrowOf(direction);
        });
    };
    if (agree(Direction::ToEquip))
        return Direction::ToEquip;
    return agree(Direction::ToHost) ? Direction::ToHost : Direction::Unknown;
}

/// Of several definitions that fit, the one with the most key items is the one that was meant; of those the
/// first.
const Interpreter::Definition* Interpreter::match(const RecordedMessage& message,
                                                  Interpretation& result) const {
    const auto* const all = candidates(message.header);
    if (all == nullptr)
        return nullptr;
    const Definition* matched = nullptr;
    bool isFirst = true;
    for (const Definition* definition : *all) {
        const bool isLess = matched != nullptr && definition->pattern.keys() <= matched->pattern.keys();
        if (isLess || !fits(*definition, message.direction))
            continue;
        // With as many differences as the nearest one has, a definition is not nearer.
        const std::size_t most = matched != nullptr ? 1
                                 : isFirst          ? kMostDifferences
                                                    : result.differences.size();
        std::vector<Difference> differences = definition->pattern.compare(message.items, codePage_, most);
        if (differences.empty()) {
            if (matched == nullptr || definition->pattern.keys() > matched->pattern.keys())
                matched = definition;
        } else if (matched == nullptr && (isFirst || differences.size() < result.differences.size())) {
            result.nearest = &definition->record;
            result.differences = std::move(differences);
            isFirst = false;
        }
    }
    if (matched != nullptr) {
        result.nearest = nullptr;
        result.differences.clear();
    }
    return matched;
}

void Interpreter::reportMismatch(const RecordedMessage& message, Interpretation& result) const {
    if (result.nearest == nullptr) {
        const bool known = candidates(message.header) != nullptr;
        result.findings.push_back({known ? "wrong-direction" : "unknown-message",
                                   known ? message.label() + " is defined for the other direction only"
                                         : message.label() + " is not defined"});
        return;
    }
    const bool onlyKeys =
        std::all_of(result.differences.begin(), result.differences.end(),
                    [](const Difference& difference) { return difference.kind == Difference::Kind::Key; });
    for (const Difference& difference : result.differences)
        result.findings.push_back(
            {onlyKeys ? "key-item" : "structure",
             "no definition fits; " + std::string(result.nearest->getName()) + " is the nearest: " +
                 (difference.path.empty() ? "" : difference.path + ": ") + difference.text});
}

Interpretation Interpreter::interpret(const RecordedMessage& message) const {
    Interpretation result;
    if (!message.fault.empty()) {
        result.findings.push_back({"unreadable", message.fault});
        return result;
    }
    const Definition* const definition = match(message, result);
    if (definition == nullptr) {
        reportMismatch(message, result);
        return result;
    }
    result.definition = &definition->record;
    if (definition->record.getWait() != message.header.wait)
        result.findings.push_back({"wait-bit", message.header.wait
                                                   ? "the W-bit is set, the definition has none"
                                                   : "the W-bit is not set, the definition has one"});
    const ReceivedData data{definition->pattern, message.items, codePage_};
    if (message.direction == received_ || message.direction == Direction::Unknown)
        chooseReceived(*definition, data, result);
    else
        chooseSent(*definition, data, result);
    return result;
}

void Interpreter::chooseReceived(const Definition& definition, const ReceivedData& data,
                                 Interpretation& result) const {
    const Branch* taken = nullptr;
    for (const Branch& branch : definition.received) {
        EvaluatedCondition evaluated;
        evaluated.message = branch.record;
        evaluated.isDefault = branch.isDefault;
        evaluated.holds = branch.isDefault || evaluate(data, branch.condition, &evaluated.comparisons);
        if (branch.condition.faultAt())
            result.findings.push_back(
                {"condition", "the condition of " + branch.record->Name() + " cannot be understood"});
        if (evaluated.holds && taken == nullptr)
            taken = &branch;
        result.conditions.push_back(std::move(evaluated));
    }
    if (taken != nullptr) {
        result.transaction = taken->record;
        addItems(*taken, data, result);
    } else if (!definition.received.empty()) {
        result.findings.push_back(
            {"no-transaction",
             "no condition of the TR messages of " + std::string(definition.record.getName()) + " applies"});
    }
}

/// The TR message whose prepared data have the most values in common with the message.
void Interpreter::chooseSent(const Definition& definition, const ReceivedData& data,
                             Interpretation& result) const {
    std::size_t best = 0;
    for (const Sent& sent : definition.sent) {
        std::size_t equal = 1;
        for (std::size_t i = 0; i < std::min(sent.values.size(), data.items.size()); ++i) {
            const secs2::Item& item = data.items[i];
            const bool isEqual = item.format == secs2::Format::List
                                     ? std::to_string(item.size) == sent.values[i]
                                     : equalsValue(data.items, item, sent.values[i], codePage_);
            equal += isEqual ? 1 : 0;
        }
        if (equal > best) {
            best = equal;
            result.transaction = sent.record;
        }
    }
}

/// A value comes from the statements; without one from the data item; without that it is the ABSValue.
void Interpreter::addItems(const Branch& branch, const ReceivedData& data, Interpretation& result) const {
    for (const Item& item : branch.items) {
        TRItemValue value;
        value.name = item.record->Name();
        const secs2::Item* source = nullptr;
        if (const Statement* const statement = chosen(item.statements, data))
            value.text = statement->value;
        else if (!item.source.text().empty() && (source = findItem(data, item.source)) != nullptr)
            value.text = itemText(data.items, *source, codePage_);
        else if (!item.record->ABSValue().empty())
            value.text = item.record->ABSValue();
        else
            value.isPresent = false;
        const bool isNumeric = item.record->Type() == "NUMERIC";
        value.isNumber = value.isPresent && isNumeric && toNumber(value.text).has_value();
        if (!value.isPresent)
            result.findings.push_back({"item-value", "the TR item " + value.name + " has no value"});
        else if (isNumeric && !value.isNumber)
            result.findings.push_back({"item-value", "the TR item " + value.name + " is \"" + value.text +
                                                         "\", which is no number"});
        result.items.push_back(std::move(value));
    }
}

} // namespace zb::rehearsal
