#pragma once

#include "console/verb.h"

#include <memory>

namespace zb {

/// The verb that runs scripts. It is a separate library, because it needs all windows.
std::unique_ptr<Verb> makeScriptVerb();

} // namespace zb
