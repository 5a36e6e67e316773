#pragma once

#include "console/verb.h"

#include <memory>
#include <string>
#include <vector>

namespace zb {

/// All verbs of zbc.
std::vector<std::unique_ptr<Verb>> makeVerbs();

/// Runs the console with these arguments, the program's name not among them; gives the exit status.
int runConsole(const std::vector<std::string>& arguments, ConsoleStreams streams);

} // namespace zb
