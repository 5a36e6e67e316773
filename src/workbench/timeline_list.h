#pragma once

#include "controls/list.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zb {

class Window;

namespace rehearsal {
class Timeline;
}

/// The list of the messages of a recording, with a filter. It is filled piece by piece.
class TimelineList {
public:
    enum class Way { Back, On };
    enum class Stop { Message, Deviation };

    /// The stores become part of the window.
    TimelineList(Window& window, const rehearsal::Timeline& timeline);

    /// Begins anew: other messages, or another filter.
    void restart();
    /// The verdict on a message has changed.
    void verdictChanged(std::size_t message);
    /// All messages have been judged: lists anew when other ones fit the filter now.
    void allJudged();
    /// Adds some rows, in some 10 microseconds; false when there is none to add.
    bool fillNext();

    /// The selected message; nothing when no row is selected.
    std::optional<std::size_t> selected() const;
    /// Selects the message, or the next one that is listed, as soon as the list has it.
    void select(std::size_t message);
    /// The listed message next to the selected one; the first or the last one when none is selected.
    std::optional<std::size_t> next(Way way, Stop stop) const;
    std::optional<std::size_t> first() const;

    /// The user, or `select`, has turned to another message, or to none.
    std::function<void()> onSelect;
    /// There is something to fill.
    std::function<void()> onRestart;

    Label lblTimelineFilter;
    TextField txtTimelineFilter;
    CheckBox chkOnlyDeviations;
    List lvwTimeline;

private:
    bool fits(std::size_t message, const std::vector<std::string>& cells) const;
    void showRow(ListRow& row, std::size_t message, std::vector<std::string> cells);
    void selectWanted();
    std::string findingsOf(const ListRow& row) const;

    const rehearsal::Timeline& timeline_;
    std::vector<std::size_t> listed_; // the messages of the rows
    std::size_t next_ = 0;            // the message that comes next into the list
    std::optional<std::size_t> wanted_;
    bool isStale_ = false;
};

} // namespace zb
