#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zb::rehearsal {

/// Collects the lines of one message in SML, from the end of its head to its end.
class LogBody {
public:
    enum class State {
        Open,   ///< more lines belong to the message
        Closed, ///< all items are closed; a point may follow
        Ended,  ///< the point was there
    };

    void clear();
    /// Adds a line, or the rest of the line of the head.
    State add(std::string_view line);
    State state() const { return state_; }
    /// Whether an item was opened.
    bool hasItems() const { return hasItems_; }
    bool isWithinItem() const { return depth_ > 0; }
    const std::string& text() const { return text_; }

private:
    void countBrackets(std::string_view line);

    std::string text_;
    std::size_t depth_ = 0;
    bool hasItems_ = false;
    State state_ = State::Open;
};

} // namespace zb::rehearsal
