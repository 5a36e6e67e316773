#pragma once

#include "platform/finding.h"

#include <span>
#include <string>
#include <string_view>

// The rules of the checks, as values. A rule looks at one message, at one message among the others, at one TR
// message, at those of one SECS message, or at the sequences; those without a function belong to checks that
// report several rules in one walk.
namespace zb {

struct MessageContext;
struct ModelContext;
struct TRMessageContext;
class Report;

enum class RuleCategory {
    Definition, ///< the form of messages and items
    Model,      ///< transactions, sequences, and what is built from them
    Standard,   ///< what is published of SECS-II messages
    Style       ///< habits that avoid mistakes
};
std::string_view categoryName(RuleCategory category);

/// When a rule is reported.
enum class RuleSet {
    Basic,   ///< by every check
    Standard ///< by the check against the published standards
};

struct Rule {
    using MessageCheck = void (*)(const MessageContext&, Report&);
    using TRMessageCheck = void (*)(const TRMessageContext&, Report&);
    using ModelCheck = void (*)(const ModelContext&, Report&);
    using SequenceCheck = void (*)(const ModelContext&, Report&);

    std::string_view id; ///< "smd.item.count"
    RuleCategory category = RuleCategory::Definition;
    Severity severity = Severity::Warning;
    RuleSet set = RuleSet::Standard;
    std::string_view title; ///< what is wrong, in a few words
    MessageCheck message = nullptr;
    /// Looks at other messages of the same or the paired function, too.
    MessageCheck link = nullptr;
    TRMessageCheck trMessage = nullptr;
    /// Looks at the TR messages of each SECS message together.
    ModelCheck model = nullptr;
    /// Looks at all sequences.
    SequenceCheck sequences = nullptr;
};

/// All rules, sorted by category and id.
std::span<const Rule> allRules();
/// Null for an unknown id.
const Rule* findRule(std::string_view id);

/// Whether a selector names a rule: its id, the name of its category, or the start of its id up to a point
/// ("smd" or "smd.item").
bool selects(std::string_view selector, const Rule& rule);
/// Whether a selector names any rule.
bool selectsAnything(std::string_view selector);

/// Takes the findings of one rule.
class Report {
public:
    Report(const Rule& rule, Findings& findings) : rule_(rule), findings_(findings) {}

    void tell(FindingPlace place, std::string text) {
        findings_.push_back({rule_.severity, std::move(place), std::move(text), std::string(rule_.id)});
    }

private:
    const Rule& rule_;
    Findings& findings_;
};

} // namespace zb
