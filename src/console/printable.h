#pragma once

#include "platform/printable.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace zb {

/// A number with its noun: "1 message", "2 messages".
std::string counted(std::size_t number, std::string_view what);

} // namespace zb
