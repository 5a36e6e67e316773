#include "lint/finding_tally.h"

#include "lint/rule.h"
#include "lint/silencings.h"

namespace zb {

FindingKind kindOf(const Finding& finding) {
    const Rule* rule = findRule(finding.id);
    if (rule == nullptr)
        return FindingKind::Import;
    switch (rule->category) {
    case RuleCategory::Definition:
        return FindingKind::Definition;
    case RuleCategory::Model:
        return FindingKind::Model;
    case RuleCategory::Standard:
        return FindingKind::Standard;
    case RuleCategory::Style:
        return FindingKind::Style;
    }
    return FindingKind::Import;
}

int FindingTally::of(Severity severity, FindingKind kind, bool withSilenced) const {
    const auto row = static_cast<std::size_t>(severity);
    const auto column = static_cast<std::size_t>(kind);
    return reportedByBoth_[row][column] + (withSilenced ? silencedByBoth_[row][column] : 0);
}

void FindingTally::count(const Findings& findings, const Silencings& silencings, int each) {
    for (const Finding& finding : findings) {
        const FindingKind kind = kindOf(finding);
        if (finding.severity == Severity::Error && kind == FindingKind::Definition)
            definitionErrors_ += each;
        const bool isSilenced = silencings.silences(finding);
        ByBoth& byBoth = isSilenced ? silencedByBoth_ : reportedByBoth_;
        byBoth[static_cast<std::size_t>(finding.severity)][static_cast<std::size_t>(kind)] += each;
        if (isSilenced) {
            silenced_ += each;
            continue;
        }
        bySeverity_[static_cast<std::size_t>(finding.severity)] += each;
        byKind_[static_cast<std::size_t>(kind)] += each;
    }
}

} // namespace zb
