#pragma once

#include <string>

namespace zb {

/// The name of this machine in its network; empty when it has none.
std::string hostName();

} // namespace zb
