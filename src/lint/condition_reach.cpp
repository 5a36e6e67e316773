#include "lint/condition_reach.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace zb {

namespace {

constexpr std::size_t kMostEvaluations = 20'000;

/// By data item the values that are compared with it.
using Values = std::map<std::string, std::set<std::string>>;
/// By data item the value that it is tried with; nothing for a value that no condition names.
using Assignment = std::map<std::string, std::string>;

void collect(const Condition& condition, Values& values) {
    for (const ConditionNode& node : condition.nodes())
        if (const auto* comparison = std::get_if<Comparison>(&node))
            values[comparison->item.text()].insert(std::string(comparison->plainValue()));
}

bool holds(const Condition& condition, const Assignment& assignment) {
    std::vector<bool> results;
    results.reserve(condition.nodes().size());
    for (const ConditionNode& node : condition.nodes()) {
        if (const auto* comparison = std::get_if<Comparison>(&node)) {
            const auto found = assignment.find(comparison->item.text());
            const bool isEqual = found != assignment.end() && found->second == comparison->plainValue();
            results.push_back(isEqual == comparison->isEqual);
            continue;
        }
        const auto& junction = std::get<Junction>(node);
        const bool left = results[junction.left];
        const bool right = results[junction.right];
        results.push_back(junction.word == Junction::Word::And ? left && right : left || right);
    }
    return !results.empty() && results.back();
}

/// The comparison of a condition that is nothing but "item == value".
const Comparison* soleEquality(const Condition& condition) {
    const auto* comparison =
        condition.nodes().size() == 1 ? std::get_if<Comparison>(&condition.nodes().front()) : nullptr;
    return comparison != nullptr && comparison->isEqual ? comparison : nullptr;
}

/// Goes through all assignments of the values, the named ones and one that nothing names.
class Assignments {
public:
    explicit Assignments(const Values& values) {
        for (const auto& [item, named] : values)
            choices_.push_back({item, {named.begin(), named.end()}, 0});
    }

    std::size_t count() const {
        std::size_t count = 1;
        for (const Choice& choice : choices_)
            count = std::min(count * (choice.values.size() + 1), kMostEvaluations + 1);
        return count;
    }

    Assignment current() const {
        Assignment assignment;
        for (const Choice& choice : choices_)
            if (choice.at < choice.values.size())
                assignment.emplace(choice.item, choice.values[choice.at]);
        return assignment;
    }

    bool next() {
        for (Choice& choice : choices_) {
            if (++choice.at <= choice.values.size())
                return true;
            choice.at = 0;
        }
        return false;
    }

private:
    struct Choice {
        std::string item;
        std::vector<std::string> values;
        std::size_t at;
    };
    std::vector<Choice> choices_;
};

} // namespace

Reach reachOf(const Condition& condition, const std::vector<const Condition*>& earlier) {
    if (condition.nodes().empty())
        return Reach::Open;
    // Models with a TR message for each of many events have pairs of these by the thousand.
    const Comparison* own = soleEquality(condition);
    const Comparison* other = earlier.size() == 1 ? soleEquality(*earlier.front()) : nullptr;
    if (own != nullptr && other != nullptr)
        return own->item == other->item && own->plainValue() == other->plainValue() ? Reach::Covered
                                                                                    : Reach::Open;
    Values values;
    collect(condition, values);
    for (const Condition* before : earlier)
        collect(*before, values);
    Assignments assignments(values);
    if (assignments.count() * (earlier.size() + 1) > kMostEvaluations)
        return Reach::Open;
    bool everHolds = false;
    do {
        const Assignment assignment = assignments.current();
        if (!holds(condition, assignment))
            continue;
        everHolds = true;
        if (std::none_of(earlier.begin(), earlier.end(),
                         [&](const Condition* before) { return holds(*before, assignment); }))
            return Reach::Open;
    } while (assignments.next());
    return everHolds ? Reach::Covered : Reach::Never;
}

} // namespace zb
