#pragma once

#include "console/verb.h"

#include <memory>

namespace zb {

/// The verb that runs scripts. It is in a library of its own, because it brings all windows along.
std::unique_ptr<Verb> makeScriptVerb();

} // namespace zb
