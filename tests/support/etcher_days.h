#pragma once

#include "messages/secs2/hsms.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zb::test {

/// A message between the etcher of the examples and its host.
struct DayMessage {
    std::int64_t time = 0; ///< nanoseconds since 1970
    bool toHost = false;
    secs2::Header header;
    std::string sml; ///< its data
};

/// A day as the project of the etcher models it: start up, a lot, an alarm.
std::vector<DayMessage> regularDay();
/// A day on which much goes wrong.
std::vector<DayMessage> oddDay();

/// The message as an HSMS frame.
std::string frameOf(const DayMessage& message);
/// The day as the etcher's driver logs it, in SML.
std::string smlLog(const std::vector<DayMessage>& day);
/// The same in hexadecimal.
std::string hexLog(const std::vector<DayMessage>& day);
/// The same as a capture: the host opens the link.
std::string capture(const std::vector<DayMessage>& day);

} // namespace zb::test
