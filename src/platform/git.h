#pragma once

#include "platform/result.h"

#include <string>
#include <vector>

namespace zb {

/// Why git gave no result: its own first line, or why it could not be run.
struct GitFault {
    std::string text;
};

/// Runs git with the arguments, without a shell, in the working folder of this process. The result is what it
/// printed.
Result<std::string, GitFault> runGit(const std::vector<std::string>& arguments);

/// The bytes of a file in a revision, named as git names it: "HEAD:Etcher.zbp". Git works in the folder, or
/// without one in the working folder of this process.
Result<std::string, GitFault> readGitObject(const std::string& name, const std::string& folder = {});

} // namespace zb
