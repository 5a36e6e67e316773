#pragma once

#include <string>

namespace zb {

/// The folders that a script can refer to.
struct ScriptFolders {
    std::string script;      ///< DIR
    std::string work;        ///< WORK
    std::string application; ///< APP
};

/// The word with each `${NAME}` replaced. Throws ScriptFailure for a variable that is not set.
std::string replaceVariables(const std::string& word, const ScriptFolders& folders);

} // namespace zb
