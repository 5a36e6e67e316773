#pragma once

#include "messages/smd/smd_writer.h"
#include "platform/code_page.h"
#include "project/project_text.h"

#include <string>

namespace zb::test {

/// The text that a save writes after the project was opened in the editor: its messages go through the tree.
inline std::string savedAgain(const Project& project) {
    NodeTree tree;
    project.messages.fill(tree);
    SECSMessageStore store;
    const CodePage codePage{1252};
    SmdWriter(codePage).buildMessageText(WalkMode::SaveProject, tree, store);
    const ProjectMessages saved(store.allTexts());
    return composeStart(project.side, project.messages.hasSection() ? saved : ProjectMessages()) +
           composeModelSections(project.foreign, *project.model, project.sequences);
}

} // namespace zb::test
