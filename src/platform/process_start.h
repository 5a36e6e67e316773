#pragma once

#include <cstdint>
#include <optional>

namespace zb {

/// When a process of this machine began, in a unit of the system's own; nothing when there is no such
/// process. With its number it names the process: a number is given again to a later one.
std::optional<std::uint64_t> processStart(long process);

} // namespace zb
