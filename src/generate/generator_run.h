#pragma once

#include "generate/generation.h"
#include "platform/result.h"
#include "project/project_files.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb::generate {

/// "cpp, csharp and java".
std::string languageNames();
bool isLanguage(std::string_view name);

/// The folder of the plug-in in a language: ZeltoPlugIn/LANGUAGE next to the project.
std::string usualFolder(const ProjectPlace& project, const std::string& language);

/// What came of a run.
struct GeneratorOutcome {
    Result<void> written;
    std::string summary;            ///< "61 files: 45 messages, 20 received and ..."
    std::vector<std::string> notes; ///< what the plug-in leaves out
};

/// Generates the plug-in and replaces the folder by it. `language` is a known one.
GeneratorOutcome runGenerator(const Project& project, const std::string& projectName,
                              const std::string& language, const std::string& folder,
                              const CodePage& codePage);

/// "61 files: 45 messages, ..." of a plug-in.
std::string summaryOf(const Generation& generation);

} // namespace zb::generate
