#pragma once

#include "console/verb.h"

#include <memory>
#include <string>
#include <vector>

namespace zb {

using Verbs = std::vector<std::unique_ptr<Verb>>;

/// The verbs that work without a window.
Verbs makeVerbs();

/// Runs the console with these arguments, without the name of the program; returns the exit status.
int runConsole(const Verbs& verbs, const std::vector<std::string>& arguments, ConsoleStreams streams);

} // namespace zb
