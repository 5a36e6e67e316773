#pragma once

#include "compare/project_comparison.h"
#include "console/verb.h"
#include "project/project.h"

#include <optional>
#include <string>

namespace zb {

/// What a name on the command line means in a comparison.
struct ComparedProject {
    Project project;
    CompareScope scope = CompareScope::Whole; ///< `Messages` for a library
};

/// Reads a project, a library, a kept version (`Etcher.zbp@3`) or a project of a git revision
/// (`HEAD:Etcher.zbp`). A file that has the name goes first. Prints one line for what cannot be read, which
/// is nothing then.
std::optional<ComparedProject> loadCompared(const std::string& name, ConsoleStreams streams);

/// For the help of verbs that take such names.
inline constexpr const char* kComparedNames =
    "a project, a library, a kept version as Etcher.zbp@3, or a git revision as HEAD:Etcher.zbp";

} // namespace zb
