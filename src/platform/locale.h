#pragma once

#include <string>

namespace zb {

/// The name of the locale of the user's environment; empty when it has none.
std::string localeName();

} // namespace zb
