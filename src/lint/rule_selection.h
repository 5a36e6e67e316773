#pragma once

#include "platform/finding.h"

#include <optional>
#include <string>
#include <vector>

namespace zb {

/// Which findings of a check are wanted.
struct RuleSelection {
    bool warnings = false; ///< also doubts of the rules of every check
    bool standard = false; ///< also these doubts, and the rules of the standards check
    /// When there are any, exactly what they select is wanted, whatever the other members say.
    std::vector<std::string> only = {};
    std::vector<std::string> except = {};

    /// Whether a rule of the standards check may be wanted.
    bool needsStandard() const { return standard || !only.empty(); }
    /// A finding without a rule is wanted.
    bool wants(const Finding& finding) const;
    /// The first selector that names no rule; nothing when all do.
    std::optional<std::string> unknownSelector() const;
};

/// Whether a finding makes a check fail: every error, and what the standards check has found except style.
bool isFailure(const Finding& finding);

} // namespace zb
