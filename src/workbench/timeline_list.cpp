#include "workbench/timeline_list.h"

#include "platform/printable.h"
#include "platform/text.h"
#include "rehearsal/timeline.h"

#include <algorithm>
#include <utility>

namespace zb {

namespace {

constexpr std::size_t kMostAtOnce = 16;

// Dark enough for a light screen; a dark one lightens them.
constexpr Color kDeviationColor{170, 0, 0};
constexpr Color kControlColor{90, 90, 90};

std::string verdictText(const rehearsal::TimelineVerdict& verdict) {
    if (!verdict.deviates())
        return "ok";
    std::string text = "! ";
    std::string_view last;
    for (const rehearsal::RehearsalFinding& finding : verdict.findings) {
        if (finding.id != last)
            text.append(last.empty() ? "" : ", ").append(finding.id);
        last = finding.id;
    }
    return text;
}

std::string nameOr(const std::string* name, const char* otherwise) {
    return name == nullptr ? otherwise : *name;
}

/// The time; with its date only where that is not the one of the first message.
std::string timeText(const rehearsal::Timeline& timeline, std::size_t at) {
    const auto& time = timeline.message(at).time;
    if (timeline.isTyped(at) || !time)
        return timeline.isTyped(at) ? "typed" : "";
    std::string text = time->text();
    const auto& first = timeline.message(0).time;
    const std::size_t clock = text.find('T') + 1;
    if (clock > 0 && at > 0 && first && first->text().starts_with(text.substr(0, clock)))
        text.erase(0, clock);
    return text;
}

/// Number, time, direction, message, definition, TR message, verdict, sequence.
std::vector<std::string> cellsOf(const rehearsal::Timeline& timeline, std::size_t at) {
    const rehearsal::RecordedMessage& message = timeline.message(at);
    const rehearsal::TimelineVerdict& verdict = timeline.verdict(at);
    const bool isControl = message.header.isControl();
    std::vector<std::string> cells{std::to_string(at + 1)};
    cells.push_back(timeText(timeline, at));
    cells.emplace_back(rehearsal::arrowOf(verdict.isKnown ? verdict.direction : message.direction));
    cells.push_back(message.label() + (message.header.wait && !isControl ? " W" : ""));
    cells.push_back(nameOr(verdict.definition, isControl || !verdict.isKnown ? "" : "-"));
    cells.push_back(nameOr(verdict.transaction, ""));
    cells.push_back(isControl || !verdict.isKnown ? std::string() : verdictText(verdict));
    cells.push_back(verdict.sequence
                        ? printable(verdict.sequence->name) + " " + std::to_string(verdict.sequence->step) +
                              "/" + std::to_string(verdict.sequence->steps)
                        : std::string());
    return cells;
}

} // namespace

TimelineList::TimelineList(Window& window, const rehearsal::Timeline& timeline)
    : lblTimelineFilter(window, "lblTimelineFilter", "F&ilter:"),
      txtTimelineFilter(window, "txtTimelineFilter"),
      chkOnlyDeviations(window, "chkOnlyDeviations", "De&viations only"), lvwTimeline(window, "lvwTimeline"),
      timeline_(timeline) {
    txtTimelineFilter.setToolTip("Lists only messages with this text in their row");
    txtTimelineFilter.onChange = [this] { restart(); };
    chkOnlyDeviations.setToolTip("Lists only messages that are not as modelled");
    chkOnlyDeviations.onChange = [this] { restart(); };
    lvwTimeline.addColumn("No.", 420);
    lvwTimeline.addColumn("Time", 900);
    lvwTimeline.addColumn("Way", 480);
    lvwTimeline.addColumn("Message", 760);
    lvwTimeline.addColumn("Definition", 1000);
    lvwTimeline.addColumn("TR message", 950);
    lvwTimeline.addColumn("Verdict", 1050);
    lvwTimeline.addColumn("Sequence", 900);
    lvwTimeline.toolTipOf = [this](const ListRow& row) { return findingsOf(row); };
    const auto choose = [this](ListRow& /*row*/) { fire(onSelect); };
    lvwTimeline.onRowClick = choose;
    lvwTimeline.onReached = choose;
}

void TimelineList::restart() {
    if (!wanted_)
        wanted_ = selected();
    lvwTimeline.clear();
    listed_.clear();
    next_ = 0;
    isStale_ = false;
    fire(onRestart);
}

void TimelineList::verdictChanged(std::size_t message) {
    if (message >= next_)
        return;
    std::vector<std::string> cells = cellsOf(timeline_, message);
    const auto place = std::lower_bound(listed_.begin(), listed_.end(), message);
    const bool isListed = place != listed_.end() && *place == message;
    isStale_ = isStale_ || isListed != fits(message, cells);
    if (isListed)
        showRow(*lvwTimeline.rows()[static_cast<std::size_t>(place - listed_.begin())], message,
                std::move(cells));
}

void TimelineList::allJudged() {
    if (isStale_)
        restart();
}

bool TimelineList::fillNext() {
    const std::size_t before = next_;
    for (std::size_t count = 0; count < kMostAtOnce && next_ < timeline_.size(); ++count, ++next_) {
        if (!timeline_.verdict(next_).isKnown)
            break;
        std::vector<std::string> cells = cellsOf(timeline_, next_);
        if (!fits(next_, cells))
            continue;
        listed_.push_back(next_);
        ListRow& row = lvwTimeline.add(cells.front());
        showRow(row, next_, std::move(cells));
    }
    if (wanted_ && (next_ > *wanted_ || next_ == timeline_.size()))
        selectWanted();
    return next_ > before;
}

bool TimelineList::fits(std::size_t message, const std::vector<std::string>& cells) const {
    if (chkOnlyDeviations.checked() && !timeline_.verdict(message).deviates())
        return false;
    const std::string filter = lower(trim(txtTimelineFilter.text()));
    return filter.empty() || std::any_of(cells.begin(), cells.end(), [&filter](const std::string& cell) {
               return contains(lower(cell), filter);
           });
}

void TimelineList::showRow(ListRow& row, std::size_t message, std::vector<std::string> cells) {
    for (std::size_t column = 0; column < cells.size(); ++column)
        row.setCell(column, std::move(cells[column]));
    if (timeline_.message(message).header.isControl())
        row.setForeColor(kControlColor);
    else
        row.setForeColor(timeline_.verdict(message).deviates() ? OptionalColor(kDeviationColor)
                                                               : OptionalColor());
}

std::optional<std::size_t> TimelineList::selected() const {
    const int position = lvwTimeline.positionOf(lvwTimeline.selected());
    return position == 0 ? std::nullopt : std::optional(listed_[static_cast<std::size_t>(position) - 1]);
}

void TimelineList::select(std::size_t message) {
    wanted_ = message;
    if (next_ > message)
        selectWanted();
}

// Where the filter leaves the message out, the one after it is the nearest; after all the last one.
void TimelineList::selectWanted() {
    const auto place = std::lower_bound(listed_.begin(), listed_.end(), *wanted_);
    if (place == listed_.end() && next_ < timeline_.size())
        return;
    wanted_.reset();
    const auto row = static_cast<std::size_t>(place - listed_.begin());
    const std::size_t last = listed_.empty() ? 0 : listed_.size() - 1;
    lvwTimeline.select(listed_.empty() ? nullptr : lvwTimeline.rows()[std::min(row, last)].get());
    fire(onSelect);
}

/// The findings of the message; empty for none.
std::string TimelineList::findingsOf(const ListRow& row) const {
    std::string text;
    const int position = lvwTimeline.positionOf(&row);
    if (position > 0)
        for (const auto& finding :
             timeline_.verdict(listed_[static_cast<std::size_t>(position) - 1]).findings)
            text += (text.empty() ? "" : "\n") + printable(finding.text);
    return text;
}

std::optional<std::size_t> TimelineList::first() const {
    return listed_.empty() ? std::nullopt : std::optional(listed_.front());
}

std::optional<std::size_t> TimelineList::next(Way way, Stop stop) const {
    const auto stops = [this, stop](std::size_t message) {
        return stop == Stop::Message || timeline_.verdict(message).deviates();
    };
    const std::optional<std::size_t> here = selected();
    if (way == Way::On) {
        const auto start = here ? std::upper_bound(listed_.begin(), listed_.end(), *here) : listed_.begin();
        const auto found = std::find_if(start, listed_.end(), stops);
        return found == listed_.end() ? std::nullopt : std::optional(*found);
    }
    const auto end = here ? std::lower_bound(listed_.begin(), listed_.end(), *here) : listed_.end();
    const auto found = std::find_if(std::make_reverse_iterator(end), listed_.rend(), stops);
    return found == listed_.rend() ? std::nullopt : std::optional(*found);
}

} // namespace zb
