#pragma once

#include <filesystem>
#include <string>

namespace zb {

/// A time of a file in the local time zone, as "2026-11-22 19:46".
std::string localTime(std::filesystem::file_time_type time);

} // namespace zb
