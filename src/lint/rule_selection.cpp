#include "lint/rule_selection.h"

#include "lint/rule.h"

#include <algorithm>

namespace zb {

namespace {

bool selectsAny(const std::vector<std::string>& selectors, const Rule& rule) {
    return std::any_of(selectors.begin(), selectors.end(),
                       [&](const std::string& selector) { return selects(selector, rule); });
}

} // namespace

bool RuleSelection::wants(const Finding& finding) const {
    const Rule* rule = findRule(finding.id);
    if (rule == nullptr)
        return true;
    if (selectsAny(except, *rule))
        return false;
    if (!only.empty())
        return selectsAny(only, *rule);
    if (rule->set == RuleSet::Standard)
        return standard;
    return standard || warnings || finding.severity == Severity::Error;
}

std::optional<std::string> RuleSelection::unknownSelector() const {
    for (const auto* selectors : {&only, &except}) {
        const auto unknown = std::find_if_not(selectors->begin(), selectors->end(), selectsAnything);
        if (unknown != selectors->end())
            return *unknown;
    }
    return std::nullopt;
}

bool isFailure(const Finding& finding) {
    const Rule* rule = findRule(finding.id);
    return finding.severity == Severity::Error ||
           (rule != nullptr && rule->set == RuleSet::Standard && rule->category != RuleCategory::Style);
}

} // namespace zb
