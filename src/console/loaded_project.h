#pragma once

#include "console/verb.h"
#include "platform/code_page.h"
#include "platform/tree/node_tree.h"

#include <string>

namespace zb {

/// A project file read without a window.
struct LoadedProject {
    NodeTree tree;
    std::string text; ///< of the whole file, decoded
    CodePage codePage{1252};

    /// Reads the file. What keeps it from being a project is told on one line; gives the exit status.
    int load(const std::string& path, ConsoleStreams streams);
};

/// The ANSI code page of the user's settings, else of the locale.
CodePage codePageOfUser();

/// Whether a root node is the head of a message, and not its description.
bool isMessageNode(const Node& node);

} // namespace zb
