#pragma once

#include "workbench/problem_watch.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace zb {

class List;
class ListRow;

/// Which problems are shown.
struct ProblemFilter {
    std::array<bool, kSeverities> severities{true, true, true};          ///< by Severity
    std::array<bool, kFindingKinds> kinds{true, true, true, true, true}; ///< by FindingKind
    bool silenced = false;                                               ///< also silenced ones
    std::string text; ///< in upper case; a row has it in any column, in any case

    bool lets(const ProblemView& problem) const;
    /// How many it lets through, of those that were counted; it must have no text.
    std::size_t countIn(const FindingTally& tally) const;
};

/// "error", "warning" or "note".
std::string severityWord(Severity severity);
/// "StepCompleted 2/1", "Received1 LOTID", "Start 3", "tool.sml line 4:12".
std::string whereText(const Finding& finding);

/// The rows of a list that shows problems. Rows whose problems stay are kept, with the selection.
class ProblemRows {
public:
    /// So many rows can still be looked through; more would make each change slow.
    static constexpr std::size_t kMostRows = 2000;

    /// Only this class may add or remove rows of the list.
    explicit ProblemRows(List& list) : list_(list) {}

    /// Shows the problems of the watch that the filter lets through.
    void show(const ProblemWatch& watch, const ProblemFilter& filter);
    /// How many the filter lets through; more than `kMostRows` are not all shown.
    std::size_t matching() const { return matching_; }
    /// Null for a row that is not in the list.
    const Problem* problemOf(const ListRow* row) const;

private:
    void replace(std::size_t at, std::size_t count, const std::vector<ProblemView>& fresh,
                 std::size_t freshEnd);

    List& list_;
    std::vector<Problem> problems_; // of the rows, in their order of insertion
    std::size_t matching_ = 0;
};

} // namespace zb
