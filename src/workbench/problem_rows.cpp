#include "workbench/problem_rows.h"

#include "controls/list.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <deque>
#include <iterator>
#include <string_view>
#include <utility>

namespace zb {

namespace {

constexpr std::size_t kWhereColumn = 1;
constexpr std::size_t kTextColumn = 2;
constexpr Color kSilencedColor{128, 128, 128};

bool areSame(const Problem& shown, const ProblemView& now) {
    return shown.root == now.root && shown.isSilenced == now.isSilenced && shown.finding == now.finding;
}

/// How many problems from these positions on are the same.
std::size_t equalLength(const std::vector<Problem>& shown, std::size_t at,
                        const std::vector<ProblemView>& now, std::size_t nowAt) {
    std::size_t length = 0;
    while (at + length < shown.size() && nowAt + length < now.size() &&
           areSame(shown[at + length], now[nowAt + length]))
        ++length;
    return length;
}

/// How many problems from this position on are of that kind.
template<typename Problems, typename Predicate>
std::size_t lengthOf(const Problems& problems, std::size_t at, const Predicate& isOfKind) {
    const auto first = problems.begin() + static_cast<std::ptrdiff_t>(at);
    return static_cast<std::size_t>(std::find_if_not(first, problems.end(), isOfKind) - first);
}

} // namespace

std::string severityWord(Severity severity) {
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        return "note";
    }
    return {};
}

std::string whereText(const Finding& finding) {
    const FindingPlace& place = finding.place;
    std::string where = place.message;
    if (!place.item.empty())
        where += " " + place.item;
    if (place.line == 0)
        return where;
    where += (where.empty() ? "line " : " line ") + std::to_string(place.line);
    return place.column == 0 ? where : where + ":" + std::to_string(place.column);
}

bool ProblemFilter::lets(const ProblemView& problem) const {
    const Finding& finding = problem.finding;
    if (!severities[static_cast<std::size_t>(finding.severity)] ||
        !kinds[static_cast<std::size_t>(kindOf(finding))] || (problem.isSilenced && !silenced))
        return false;
    if (text.empty())
        return true;
    const auto holds = [this](std::string_view column) { return contains(upper(column), text); };
    return holds(finding.text) || holds(whereText(finding)) || holds(finding.id) ||
           holds(severityWord(finding.severity));
}

std::size_t ProblemFilter::countIn(const FindingTally& tally) const {
    std::size_t count = 0;
    for (std::size_t severity = 0; severity < severities.size(); ++severity)
        for (std::size_t kind = 0; kind < kinds.size(); ++kind)
            if (severities[severity] && kinds[kind])
                count += static_cast<std::size_t>(
                    tally.of(static_cast<Severity>(severity), static_cast<FindingKind>(kind), silenced));
    return count;
}

// The problems beyond those that are listed are looked at only to count how many hold the text.
void ProblemRows::show(const ProblemWatch& watch, const ProblemFilter& filter) {
    std::vector<ProblemView> fresh;
    std::deque<Finding> ofModel; // those are made for the visit
    matching_ = 0;
    const bool countsAll = !filter.text.empty();
    watch.visit([&](const ProblemView& problem) {
        if (filter.lets(problem) && ++matching_ <= kMostRows) {
            const bool stays = problem.root != nullptr;
            const Finding& finding = stays ? problem.finding : ofModel.emplace_back(problem.finding);
            fresh.push_back({finding, problem.root, problem.isSilenced});
        }
        return countsAll || fresh.size() < kMostRows;
    });
    if (!countsAll)
        matching_ = filter.countIn(watch.tally());
    const std::size_t at = equalLength(problems_, 0, fresh, 0);
    if (at == problems_.size() || at == fresh.size())
        return replace(at, problems_.size() - at, fresh, fresh.size());
    // Mostly one message has changed, and the rows after it have moved, the last ones over the end.
    const auto ofEither = [roots = std::array{problems_[at].root, fresh[at].root}](const auto& problem) {
        return problem.root == roots[0] || problem.root == roots[1];
    };
    const std::size_t gone = lengthOf(problems_, at, ofEither);
    const std::size_t come = lengthOf(fresh, at, ofEither);
    const std::size_t stay = equalLength(problems_, at + gone, fresh, at + come);
    const bool isOneMessage = at + gone + stay == problems_.size() || at + come + stay == fresh.size();
    if (!isOneMessage)
        return replace(at, problems_.size() - at, fresh, fresh.size());
    replace(at, gone, fresh, at + come);
    const std::size_t end = at + come + stay;
    replace(end, problems_.size() - end, fresh, fresh.size());
}

void ProblemRows::replace(std::size_t at, std::size_t count, const std::vector<ProblemView>& fresh,
                          std::size_t freshEnd) {
    if (count == problems_.size() && count > 0) {
        list_.clear();
    } else {
        for (std::size_t row = at + count; row-- > at;)
            list_.remove(*list_.rows()[row]);
    }
    std::vector<Problem> added;
    for (std::size_t row = at; row < freshEnd; ++row) {
        const ProblemView& problem = fresh[row];
        added.push_back(problem.copy());
        ListRow& shown = list_.insert(row, severityWord(problem.finding.severity));
        shown.setCell(kWhereColumn, whereText(problem.finding));
        shown.setCell(kTextColumn, problem.finding.text);
        if (problem.isSilenced)
            shown.setForeColor(kSilencedColor);
    }
    const auto first = problems_.begin() + static_cast<std::ptrdiff_t>(at);
    const auto rest = problems_.erase(first, first + static_cast<std::ptrdiff_t>(count));
    problems_.insert(rest, std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
}

const Problem* ProblemRows::problemOf(const ListRow* row) const {
    const auto& rows = list_.rows();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const auto& owned) { return owned.get() == row; });
    return found == rows.end() ? nullptr : &problems_[static_cast<std::size_t>(found - rows.begin())];
}

} // namespace zb
