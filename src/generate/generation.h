#pragma once

#include "generate/language.h"
#include "platform/code_page.h"
#include "project/project.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zb::generate {

/// A file of a plug-in.
struct GeneratedFile {
    std::string path; ///< within the folder of the plug-in, with "/"
    std::string text;
};

/// A plug-in as text. The same project gives the same bytes.
struct Generation {
    std::vector<GeneratedFile> files;
    /// What the plug-in leaves out, a sentence each.
    std::vector<std::string> notes;
    std::size_t messages = 0;
    std::size_t received = 0;
    std::size_t sent = 0;
    std::size_t sequences = 0;
};

/// Turns a project into the source of a plug-in. Texts of messages have the bytes of this code page.
Generation generatePlugIn(const Project& project, const std::string& projectName, const Language& language,
                          const CodePage& codePage);

} // namespace zb::generate
