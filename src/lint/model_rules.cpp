#include "lint/model_rules.h"

#include "lint/condition_reach.h"
#include "lint/rule.h"
#include "lint/rule_context.h"
#include "messages/message_store.h"
#include "project/project_view.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zb {

namespace {

/// A received TR message in the order in which the driver asks for it.
struct Candidate {
    const TRMessageRecord* record;
    Condition condition;
    bool isDefault;
};

/// By SECS message the TR messages among which the driver chooses.
std::map<std::string, std::vector<Candidate>> candidatesOf(const ModelContext& context) {
    std::map<std::string, std::vector<Candidate>> candidates;
    const int received = context.project.side == Side::Host ? kToHost : kToEquip;
    for (const TRMessageRecord* record : context.records)
        if (record->Direction() == received)
            candidates[record->SECSMessage()].push_back(
                {record, Condition::parse(record->Condition()), isDefaultCondition(record->Condition())});
    return candidates;
}

/// Why the candidate at a position can never be chosen; empty when it can.
std::string unreachableText(const std::vector<Candidate>& candidates, std::size_t at) {
    const Candidate& candidate = candidates[at];
    if (reachOf(candidate.condition, {}) == Reach::Never)
        return "The condition contradicts itself, so that it never holds";
    std::vector<const Condition*> earlier;
    for (std::size_t other = 0; other < at; ++other) {
        if (candidates[other].isDefault || candidates[other].condition.nodes().empty())
            continue;
        const std::string& name = candidates[other].record->Name();
        if (candidates[other].condition.text() == candidate.condition.text())
            return "\"" + name + "\" before it has the same condition, so that it is never chosen";
        if (reachOf(candidate.condition, {&candidates[other].condition}) == Reach::Covered)
            return "The condition of \"" + name +
                   "\" before it holds whenever this one does, so that it is "
                   "never chosen";
        earlier.push_back(&candidates[other].condition);
    }
    return earlier.size() > 1 && reachOf(candidate.condition, earlier) == Reach::Covered
               ? "One of the conditions before it holds whenever this one does, so that it is never chosen"
               : "";
}

/// A row of a sequence with its SECS message.
struct SequenceStep {
    int row; ///< among all rows, from 1
    std::string position;
    int stream;
    int function;  ///< kUnknown when the row names no message of the project
    int direction; ///< kToHost or kToEquip

    bool isReplyTo(const SequenceStep& other) const {
        return other.stream == stream && other.function == function - 1 && other.direction != direction;
    }
};
constexpr int kUnknown = -1;

/// Calls `visit` with the name of each sequence and its rows.
template<typename Visit>
void visitSequences(const ProjectView& project, Visit visit) {
    const auto& rows = project.sequences.rows();
    std::optional<std::string> name;
    std::vector<SequenceStep> steps;
    int position = 0;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (rows[at].isHead()) {
            if (name)
                visit(*name, steps);
            name = rows[at].text;
            steps.clear();
            position = 0;
            continue;
        }
        ++position;
        const TRMessageRecord* record =
            project.model == nullptr ? nullptr : project.model->getTRMessage(rows[at].transactionName);
        const SECSMessageRecord* message =
            record == nullptr ? nullptr : project.messages.getByName(record->SECSMessage());
        steps.push_back({static_cast<int>(at) + 1, std::to_string(position),
                         message == nullptr ? kUnknown : message->getStream(),
                         message == nullptr ? kUnknown : message->getFunction(),
                         record == nullptr ? kUnknown : record->Direction()});
    }
    if (name)
        visit(*name, steps);
}

} // namespace

void checkReachable(const ModelContext& context, Report& report) {
    for (const auto& [name, candidates] : candidatesOf(context)) {
        for (std::size_t at = 0; at < candidates.size(); ++at) {
            if (candidates[at].isDefault)
                continue;
            if (std::string text = unreachableText(candidates, at); !text.empty())
                report.tell(FindingPlace::inTRMessage(candidates[at].record->Name(), {}), std::move(text));
        }
    }
}

void checkDefaultFirst(const ModelContext& context, Report& report) {
    for (const auto& [name, candidates] : candidatesOf(context)) {
        const bool hasOthers = std::any_of(candidates.begin(), candidates.end(),
                                           [](const Candidate& candidate) { return !candidate.isDefault; });
        if (candidates.front().isDefault && hasOthers)
            report.tell(FindingPlace::inTRMessage(candidates.front().record->Name(), {}),
                        "The default of \"" + name +
                            "\" is before the others, so that they are never chosen");
    }
}

void checkReplyOrder(const ModelContext& context, Report& report) {
    visitSequences(context.project, [&](const std::string& name, const std::vector<SequenceStep>& steps) {
        bool isUnknownBefore = false; // what may be the primary message is a fault of its own
        for (auto step = steps.begin(); step != steps.end(); ++step) {
            isUnknownBefore = isUnknownBefore || step->function == kUnknown;
            const bool isReply = step->function > 0 && step->function % 2 == 0;
            const auto isPrimary = [&](const SequenceStep& other) { return step->isReplyTo(other); };
            if (!isReply || std::any_of(steps.begin(), step, isPrimary))
                continue;
            const bool comesLater = std::any_of(step, steps.end(), isPrimary);
            if (isUnknownBefore && !comesLater)
                continue;
            const std::string reply =
                "The reply S" + std::to_string(step->stream) + "F" + std::to_string(step->function);
            report.tell(FindingPlace::inSequence(name, step->position, step->row),
                        reply +
                            (comesLater ? " is before its primary message" : " follows no primary message"));
        }
    });
}

void checkSequenceNamesDiffer(const ModelContext& context, Report& report) {
    std::set<std::string> names;
    const auto& rows = context.project.sequences.rows();
    for (std::size_t at = 0; at < rows.size(); ++at)
        if (rows[at].isHead() && !names.insert(rows[at].text).second)
            report.tell(FindingPlace::inSequence(rows[at].text, {}, static_cast<int>(at) + 1),
                        "The name of this sequence is used twice");
}

void checkSequenceNamesFree(const ModelContext& context, Report& report) {
    const auto& rows = context.project.sequences.rows();
    for (std::size_t at = 0; at < rows.size(); ++at)
        if (rows[at].isHead() && context.project.model != nullptr &&
            context.project.model->getTRMessage(rows[at].text) != nullptr)
            report.tell(FindingPlace::inSequence(rows[at].text, {}, static_cast<int>(at) + 1),
                        "A TR message has the name of this sequence");
}

} // namespace zb
