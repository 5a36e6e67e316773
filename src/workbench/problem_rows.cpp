#include "workbench/problem_rows.h"

#include "controls/list.h"
#include "platform/text.h"

#include <algorithm>
#include <utility>

namespace zb {

namespace {

constexpr std::size_t kWhereColumn = 1;
constexpr std::size_t kTextColumn = 2;
constexpr Color kSilencedColor{128, 128, 128};

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

bool ProblemFilter::lets(const Problem& problem) const {
    const Finding& finding = problem.finding;
    if (!severities[static_cast<std::size_t>(finding.severity)] ||
        !kinds[static_cast<std::size_t>(kindOf(finding))] || (problem.isSilenced && !silenced))
        return false;
    if (text.empty())
        return true;
    const std::string all =
        severityWord(finding.severity) + "\n" + whereText(finding) + "\n" + finding.text + "\n" + finding.id;
    return contains(upper(all), upper(text));
}

void ProblemRows::show(const ProblemWatch& watch, const ProblemFilter& filter) {
    std::vector<Problem> fresh;
    matching_ = 0;
    watch.visit([&](const Problem& problem) {
        if (filter.lets(problem) && ++matching_ <= kMostRows)
            fresh.push_back(problem);
    });
    const auto [oldFirst, newFirst] =
        std::mismatch(problems_.begin(), problems_.end(), fresh.begin(), fresh.end());
    const auto [oldLast, newLast] = std::mismatch(problems_.rbegin(), std::make_reverse_iterator(oldFirst),
                                                  fresh.rbegin(), std::make_reverse_iterator(newFirst));
    const auto at = static_cast<std::size_t>(oldFirst - problems_.begin());
    const auto oldEnd = static_cast<std::size_t>(oldLast.base() - problems_.begin());
    const auto newEnd = static_cast<std::size_t>(newLast.base() - fresh.begin());
    replace(at, oldEnd - at, fresh, newEnd);
    problems_ = std::move(fresh);
}

void ProblemRows::replace(std::size_t at, std::size_t count, const std::vector<Problem>& fresh,
                          std::size_t freshEnd) {
    if (count == problems_.size()) {
        list_.clear();
    } else {
        for (std::size_t row = at + count; row-- > at;)
            list_.remove(*list_.rows()[row]);
    }
    for (std::size_t row = at; row < freshEnd; ++row) {
        const Problem& problem = fresh[row];
        ListRow& added = list_.insert(row, severityWord(problem.finding.severity));
        added.setCell(kWhereColumn, whereText(problem.finding));
        added.setCell(kTextColumn, problem.finding.text);
        if (problem.isSilenced)
            added.setForeColor(kSilencedColor);
    }
}

const Problem* ProblemRows::problemOf(const ListRow* row) const {
    const auto& rows = list_.rows();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const auto& owned) { return owned.get() == row; });
    return found == rows.end() ? nullptr : &problems_[static_cast<std::size_t>(found - rows.begin())];
}

} // namespace zb
