#pragma once

#include "platform/finding.h"

#include <array>
#include <cstddef>

namespace zb {

class Silencings;

/// What a finding is about: the category of its rule, or a file that was read.
enum class FindingKind { Definition, Model, Standard, Style, Import };
inline constexpr std::size_t kFindingKinds = 5;
inline constexpr std::size_t kSeverities = 3;

/// Findings without a rule are those of files.
FindingKind kindOf(const Finding& finding);

/// How many findings there are of each severity and kind, without the silenced ones.
class FindingTally {
public:
    void add(const Findings& findings, const Silencings& silencings) { count(findings, silencings, 1); }
    void remove(const Findings& findings, const Silencings& silencings) { count(findings, silencings, -1); }
    void clear() { *this = {}; }

    int of(Severity severity) const { return bySeverity_[static_cast<std::size_t>(severity)]; }
    int of(FindingKind kind) const { return byKind_[static_cast<std::size_t>(kind)]; }
    int silenced() const { return silenced_; }
    /// Of one severity and kind, with or without the silenced ones.
    int of(Severity severity, FindingKind kind, bool withSilenced) const;
    /// Of the messages, silenced ones included: they keep the modeler closed.
    int definitionErrors() const { return definitionErrors_; }

private:
    void count(const Findings& findings, const Silencings& silencings, int each);

    using ByBoth = std::array<std::array<int, kFindingKinds>, kSeverities>;

    std::array<int, kSeverities> bySeverity_{};
    std::array<int, kFindingKinds> byKind_{};
    ByBoth reportedByBoth_{};
    ByBoth silencedByBoth_{};
    int silenced_ = 0;
    int definitionErrors_ = 0;
};

} // namespace zb
