#pragma once

#include "rehearsal/recorded_message.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace zb::rehearsal {

/// A time that was found in a line.
struct FoundTime {
    RecordedTime time;
    std::size_t begin = 0; ///< in the line
    std::size_t end = 0;
};

/// The first time in the line, with or without a date: "2022-12-15 15:36:24.6668", "2021-03-04T10:11:12.345",
/// "2024-09-24 10:00:00,123", "2009/03/05 10:11:12", "20090305_101112", "15.12.2022 15:36:24",
/// "10:11:12.345".
std::optional<FoundTime> findTime(std::string_view line);

} // namespace zb::rehearsal
