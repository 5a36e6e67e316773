#pragma once

#include <string>

namespace zb {

// The name of the locale that the user's environment asks for; empty when it asks for none.
std::string localeName();

} // namespace zb
