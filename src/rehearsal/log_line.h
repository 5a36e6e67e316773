#pragma once

#include "messages/secs2/hsms.h"
#include "rehearsal/log_time.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace zb::rehearsal {

/// How a line names the way of a message.
enum class Way { Unknown, Received, Sent, TrySent, ToEquip, ToHost };

/// A stream and function in a line, from which SML may follow.
struct FoundHead {
    std::size_t begin = 0; ///< with the quote before it
    std::size_t end = 0;   ///< after the function and what belongs to it
    unsigned stream = 0;
    unsigned function = 0;
    bool wait = false;
};

/// What one line of a log says about a message, apart from its data.
struct LogLine {
    std::string_view line;
    std::optional<FoundTime> time;
    Way way = Way::Unknown;
    std::size_t afterWay = 0; ///< where the rest of the line begins
    std::optional<std::uint32_t> system;
    std::optional<std::uint16_t> session;
    std::optional<secs2::Header> header; ///< written as ten bytes or as text
    std::optional<FoundHead> head;
    unsigned control = 0;            ///< the SType of a control message that the line names
    std::optional<std::size_t> size; ///< of a dump that follows, in bytes
    /// The ports of "[address:port -> address:port]".
    std::optional<int> fromPort;
    std::optional<int> toPort;

    /// Whether an entry of the log about a message begins here.
    bool beginsEntry() const;
};

LogLine readLogLine(std::string_view line);

/// Whether SML can follow what `readLogLine` found: nothing but marks, a comment or an item is after the
/// head, and nothing but a name or the start of an entry is before it.
bool isSmlHead(const LogLine& line);

} // namespace zb::rehearsal
