#include "unit/lint/checked_project.h"

#include "lint/project_check.h"
#include "messages/library_store.h"
#include "messages/message_store.h"
#include "messages/smd/smd_reader.h"
#include "messages/smd/smd_writer.h"
#include "platform/text.h"
#include "project/project_text.h"
#include "project/project_view.h"

#include <gtest/gtest.h>

namespace zb::test {

Findings findingsOf(std::string_view projectText) {
    const Project project = parseProject(projectText);
    const CodePage codePage(949);
    NodeTree tree;
    project.messages.fill(tree);
    SECSMessageStore messages;
    SmdWriter(codePage).buildMessageText(WalkMode::SaveProject, tree, messages);
    ProjectFindings found = checkProject(tree, viewOf(project, messages), codePage, true);
    Findings findings = std::move(found.messages);
    findings.insert(findings.end(), found.model.begin(), found.model.end());
    return findings;
}

std::vector<std::string> placesOf(const Findings& findings) {
    std::vector<std::string> places;
    for (const Finding& finding : findings) {
        std::string place = finding.id + ": " + finding.place.message;
        if (!finding.place.item.empty())
            place += ": " + finding.place.item;
        places.push_back(std::move(place));
    }
    return places;
}

std::string projectOf(std::string_view messages, std::string_view modelAndSequences) {
    std::string text = "\n###[PROJECT INFORMATION]\nProjectType=2\n## [EDIT SMD]\n";
    return text.append(messages).append(modelAndSequences);
}

std::string projectOfLibrary(const std::vector<std::string>& blocks) {
    SECSLibraryStore library(CodePage(1252));
    for (const std::string& block : blocks)
        library.load(block, kFormatSemi);
    NodeTree tree;
    for (const SECSMessageRecord* record : library.getMessages())
        EXPECT_EQ(addMessageToTree(tree, *record), "");
    SECSMessageStore store;
    SmdWriter(CodePage(1252)).buildMessageText(WalkMode::SaveProject, tree, store);
    return projectOf(store.allTexts());
}

} // namespace zb::test
