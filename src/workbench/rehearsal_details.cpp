#include "workbench/rehearsal_details.h"

#include "model/tr_message_record.h"
#include "platform/printable.h"
#include "rehearsal/item_rows.h"
#include "rehearsal/sequence_progress.h"
#include "rehearsal/timeline.h"

#include <utility>

namespace zb {

namespace {

using rehearsal::ItemRow;

constexpr std::size_t kMostItems = 5'000;
constexpr std::size_t kIndent = 3;

// Dark enough for a light screen; a dark one lightens them.
constexpr Color kTrueColor{0, 100, 0};
constexpr Color kFalseColor{170, 0, 0};
constexpr Color kChangedColor{120, 70, 0};
constexpr Color kExpectedColor{90, 90, 90};

const char* signOf(ItemRow::Sign sign) {
    switch (sign) {
    case ItemRow::Sign::Differs:
        return "~";
    case ItemRow::Sign::Missing:
        return "-";
    case ItemRow::Sign::Surplus:
        return "+";
    case ItemRow::Sign::Same:
        break;
    }
    return "";
}

OptionalColor colorOf(ItemRow::Sign sign) {
    switch (sign) {
    case ItemRow::Sign::Differs:
        return kChangedColor;
    case ItemRow::Sign::Missing:
        return kFalseColor;
    case ItemRow::Sign::Surplus:
        return kTrueColor;
    case ItemRow::Sign::Same:
        break;
    }
    return {};
}

std::string indented(std::size_t level, const std::string& text) {
    return text.empty() ? text : std::string(level * kIndent, ' ') + text;
}

const char* wordOf(bool holds) {
    return holds ? "true" : "false";
}

OptionalColor colorOf(bool holds) {
    return holds ? kTrueColor : kFalseColor;
}

const char* wordOf(rehearsal::SequenceProgress::State state) {
    using State = rehearsal::SequenceProgress::State;
    switch (state) {
    case State::Done:
        return "done";
    case State::Here:
        return "here";
    case State::Missed:
        return "! missed";
    case State::Expected:
        break;
    }
    return "";
}

OptionalColor colorOf(rehearsal::SequenceProgress::State state) {
    using State = rehearsal::SequenceProgress::State;
    switch (state) {
    case State::Missed:
        return kFalseColor;
    case State::Expected:
        return kExpectedColor;
    default:
        return kTrueColor;
    }
}

std::string comparisonText(const rehearsal::ComparedItem& compared) {
    const Comparison& comparison = *compared.comparison;
    return indented(1, comparison.item.text() + (comparison.isEqual ? " == " : " != ") + comparison.value);
}

} // namespace

RehearsalDetails::RehearsalDetails(Window& window)
    : lblFindings(window, "lblFindings", "Findings"), lvwFindings(window, "lvwFindings"),
      lblItems(window, "lblItems", "Items"), lvwItems(window, "lvwItems"),
      lblConditions(window, "lblConditions", "Conditions"), lvwConditions(window, "lvwConditions"),
      lblValues(window, "lblValues", "TR items"), lvwValues(window, "lvwValues"),
      lblSequence(window, "lblSequence", "Sequence"), lvwSequence(window, "lvwSequence") {
    lvwFindings.addColumn("Finding", 1500);
    lvwFindings.addColumn("What is not as modelled", 5000);
    lvwItems.addColumn("", 260);
    lvwItems.addColumn("Received", 1800);
    lvwItems.addColumn("Definition", 1500);
    lvwItems.addColumn("Difference", 1400);
    lvwConditions.addColumn("Holds", 560);
    lvwConditions.addColumn("Condition", 1500);
    lvwConditions.addColumn("In the message", 900);
    lvwValues.addColumn("TR item", 800);
    lvwValues.addColumn("Value", 1000);
    lvwSequence.addColumn("Step", 420);
    lvwSequence.addColumn("Host and equipment", 2700);
    lvwSequence.addColumn("State", 700);
    lvwSequence.addColumn("Message", 700);
}

void RehearsalDetails::clear() {
    for (List* list : {&lvwFindings, &lvwItems, &lvwConditions, &lvwValues, &lvwSequence})
        list->clear();
    conditionOwners_.clear();
    stepMessages_.clear();
    lblItems.setText("Items");
    lblSequence.setText("Sequence");
}

void RehearsalDetails::show(const rehearsal::Timeline& timeline, std::optional<std::size_t> message,
                            const CodePage& codePage) {
    clear();
    if (!message)
        return;
    const rehearsal::Interpretation result = timeline.interpret(*message);
    showFindings(timeline, *message);
    showItems(timeline, *message, result, codePage);
    showConditions(result);
    showValues(result);
    showSequence(timeline, *message);
}

void RehearsalDetails::showFindings(const rehearsal::Timeline& timeline, std::size_t message) {
    for (const rehearsal::RehearsalFinding& finding : timeline.verdict(message).findings) {
        ListRow& row = lvwFindings.add(std::string(finding.id));
        row.setCell(1, printable(finding.text));
        row.setForeColor(kFalseColor);
    }
}

void RehearsalDetails::showItems(const rehearsal::Timeline& timeline, std::size_t message,
                                 const rehearsal::Interpretation& result, const CodePage& codePage) {
    const SECSMessageRecord* record = result.definition != nullptr ? result.definition : result.nearest;
    std::optional<rehearsal::MessagePattern> pattern;
    if (record != nullptr)
        pattern.emplace(*record);
    const secs2::Items& items = timeline.message(message).items;
    const auto rows = rehearsal::itemRows(items, pattern ? &*pattern : nullptr, codePage, kMostItems);
    for (const ItemRow& item : rows) {
        ListRow& row = lvwItems.add(signOf(item.sign));
        row.setCell(1, indented(item.level, item.received));
        row.setCell(2, indented(item.level, item.defined));
        row.setCell(3, item.difference);
        row.setForeColor(colorOf(item.sign));
    }
    std::string title = "Items of " + timeline.message(message).label();
    if (result.definition != nullptr)
        title += " beside " + std::string(record->getName());
    else if (record != nullptr)
        title += " beside " + std::string(record->getName()) + ", the nearest definition";
    if (rows.size() == kMostItems)
        title += " (the first " + std::to_string(kMostItems) + " rows)";
    lblItems.setText(printable(title));
}

void RehearsalDetails::showConditions(const rehearsal::Interpretation& result) {
    for (const rehearsal::EvaluatedCondition& condition : result.conditions) {
        const std::string& owner = condition.message->Name();
        ListRow& row = lvwConditions.add(wordOf(condition.holds));
        row.setCell(1, printable(owner) + (condition.isDefault ? " (no condition)" : ""));
        row.setCell(2, condition.message == result.transaction ? "applies" : "");
        row.setBold(condition.message == result.transaction);
        row.setForeColor(colorOf(condition.holds));
        conditionOwners_.push_back(owner);
        for (const rehearsal::ComparedItem& compared : condition.comparisons) {
            ListRow& part = lvwConditions.add(wordOf(compared.holds));
            part.setCell(1, printable(comparisonText(compared)));
            part.setCell(2, compared.isPresent ? printable(compared.value) : "is missing");
            part.setForeColor(colorOf(compared.holds));
            conditionOwners_.push_back(owner);
        }
    }
}

void RehearsalDetails::showValues(const rehearsal::Interpretation& result) {
    for (const rehearsal::TRItemValue& item : result.items) {
        ListRow& row = lvwValues.add(printable(item.name));
        row.setCell(1, item.isPresent ? printable(item.text) : "no value");
        if (!item.isPresent)
            row.setForeColor(kFalseColor);
    }
}

void RehearsalDetails::showSequence(const rehearsal::Timeline& timeline, std::size_t message) {
    const auto progress = rehearsal::sequenceAt(timeline, message);
    if (!progress)
        return;
    lblSequence.setText("Sequence " + printable(progress->name) + ": step " + std::to_string(progress->done) +
                        " of " + std::to_string(progress->steps.size()));
    for (std::size_t at = 0; at < progress->steps.size(); ++at) {
        const rehearsal::SequenceProgress::Step& step = progress->steps[at];
        ListRow& row = lvwSequence.add(std::to_string(at + 1));
        row.setCell(1, (step.isToHost ? "H<-E " : "H->E ") + printable(step.transaction));
        row.setCell(2, wordOf(step.state));
        row.setCell(3, step.message ? "No. " + std::to_string(*step.message + 1) : std::string());
        row.setBold(step.state == rehearsal::SequenceProgress::State::Here);
        row.setForeColor(colorOf(step.state));
        stepMessages_.push_back(step.message);
    }
}

std::optional<std::size_t> RehearsalDetails::messageOfStep() const {
    const int position = lvwSequence.positionOf(lvwSequence.selected());
    return position == 0 ? std::nullopt : stepMessages_[static_cast<std::size_t>(position) - 1];
}

std::string RehearsalDetails::transactionOfCondition() const {
    const int position = lvwConditions.positionOf(lvwConditions.selected());
    return position == 0 ? std::string() : conditionOwners_[static_cast<std::size_t>(position) - 1];
}

} // namespace zb
