#include "workbench/document_command.h"

#include "controls/desktop.h"
#include "document/interface_document.h"
#include "document/interface_facts.h"
#include "platform/file_replacer.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "workbench/frm_workbench.h"
#include "workbench/project_door.h"

#include <filesystem>
#include <string>

namespace zb {

namespace fs = std::filesystem;

namespace {

constexpr const char* kTopic = "document";

std::string endingOf(const std::string& path) {
    return lower(fs::path(path).extension().string());
}

} // namespace

void writeInterfaceDocument(const frmWorkbench& workbench) {
    Desktop& desktop = workbench.desktop();
    const ModuleState& state = workbench.services().state;
    if (isBlank(state.ProjectName)) {
        desktop.post({"There is no open project to document", {}, kTopic});
        return;
    }
    const std::string path =
        desktop.pickFile({"Save the interface document", "HTML (*.html)|*.html|Markdown (*.md)|*.md", "html",
                          state.ProjectPath, true});
    if (isBlank(path))
        return;
    const std::string name = fs::path(path).filename().string();
    if (endingOf(path) == ".zbp") {
        desktop.post({name + " is the name of a project, and not of a document", {}, kTopic});
        return;
    }
    const InterfaceFacts facts = interfaceFacts(workbench.services().project.content(), state.ProjectName);
    const std::string text = endingOf(path) == ".md" ? interfaceMarkdown(facts) : interfaceHtml(facts);
    if (const Result<void> written = replaceFile(state.files, path, text); !written) {
        desktop.post({name + " cannot be written: " + written.error().description, {}, kTopic});
        return;
    }
    const auto open = [&desktop, path, name] {
        if (!desktop.screen().openFile(path))
            desktop.post({"No program on this system opens " + name, {}, kTopic});
    };
    desktop.post({"Documented " + std::to_string(facts.messages.size()) + " messages in " + name,
                  {{"Open", open}},
                  kTopic});
}

} // namespace zb
