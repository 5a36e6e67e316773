#pragma once

#include "messages/secs2/hsms.h"
#include "messages/secs2/items.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zb::rehearsal {

enum class Direction { Unknown, ToEquip, ToHost };

/// "H->E", "H<-E"; "-" when the recording does not say.
std::string_view arrowOf(Direction direction);
constexpr Direction opposite(Direction direction) {
    switch (direction) {
    case Direction::ToEquip:
        return Direction::ToHost;
    case Direction::ToHost:
        return Direction::ToEquip;
    default:
        return Direction::Unknown;
    }
}

/// When a message was recorded.
struct RecordedTime {
    std::int64_t nanoseconds = 0; ///< since 1970-01-01, or since midnight when the recording gives no date
    bool hasDate = true;
    bool isUtc = false; ///< otherwise the clock of the program that wrote the recording

    /// "2022-12-15T15:36:24.6668", with at least three digits of the second, and "Z" for UTC.
    std::string text() const;
    bool operator==(const RecordedTime&) const = default;
};

/// One message of a recording.
struct RecordedMessage {
    std::optional<RecordedTime> time;
    Direction direction = Direction::Unknown;
    std::size_t link = 0; ///< the connection, from 1 in the order of a capture; 0 in a log
    secs2::Header header;
    bool hasSystem = false; ///< the recording contains the system bytes
    secs2::Items items;
    std::string fault; ///< why the data could not be read; then there are no items
    std::string place; ///< in the recording: "line 12", "packet 7"

    /// "S1F13", or the name of a control message.
    std::string label() const;
};

} // namespace zb::rehearsal
