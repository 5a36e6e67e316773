#include "shell/build_commands.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "modeler/tmd_checks.h"
#include "outputs/tmd_document.h"
#include "platform/file_access.h"
#include "platform/file_replacer.h"
#include "platform/setting_names.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "shell/file_error_box.h"

#include <cerrno>
#include <filesystem>

namespace zb {

namespace {

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string fileNameOf(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

} // namespace

bool BuildCommands::buildSmd() {
    const bool mdf = trim(state_.settings.getOption(kMessageFormat)) == "mdf";
    return mdf ? buildSmdTo(state_.mdfFilePath(), DefinitionForm::Mdf)
               : buildSmdTo(state_.smdFilePath(), DefinitionForm::Smd);
}

bool BuildCommands::buildSmdTo(const std::string& target, DefinitionForm form) {
    if (const Result<void> access = checkFileAccess(state_.files, target); !access) {
        showFileError(windows_.desktop, target, access.error());
        return false;
    }
    const WalkMode mode = form == DefinitionForm::Mdf ? WalkMode::BuildMdf : WalkMode::BuildSmd;
    if (!isBlank(windows_.editor.buildMessageText(mode)))
        return false;
    return windows_.editor.liveTree().empty() || writeDefinitions(target, form);
}

bool BuildCommands::writeDefinitions(const std::string& target, DefinitionForm form) {
    const Result<void> written =
        replaceFile(state_.files, target, composeDefinitions(*state_.SECSMessageStore, form));
    if (written) {
        postBuilt(target, counted(state_.SECSMessageStore->getMessages().size(), "message"));
        return true;
    }
    const FileError& error = written.error();
    if (error.number == ENOENT || error.number == ENOTDIR)
        windows_.desktop.showBox("You cannot save this file because the file path is not found.");
    else
        showFileError(windows_.desktop, target, error);
    return false;
}

void BuildCommands::postBuilt(const std::string& target, const std::string& content) {
    windows_.desktop.post(
        {"Built " + fileNameOf(target) + ", " + content + ", " + windows_.desktop.screen().timeOfDay()});
}

void BuildCommands::reportTmd(const std::string& target, const TmdContent& content) {
    postBuilt(target, counted(content.messages, "transaction message") + ", " +
                          counted(content.sequences, "sequence"));
    if (content.leftOut.empty())
        return;
    std::string text = fileNameOf(target) + " holds only ";
    for (std::size_t i = 0; i < content.leftOut.size(); ++i)
        text += (i == 0 ? "" : ", ") + content.leftOut[i];
    windows_.desktop.post({text + "; see Problems",
                           {{"Problems", windows_.showProblems}},
                           "left out",
                           Notice::Stays::UntilClosed});
}

bool BuildCommands::buildTmd() {
    if (state_.TRModelStore == nullptr || state_.TRModelStore->TRMessages().empty())
        return true;
    const std::string target = state_.tmdFilePath();
    if (const Result<void> access = checkFileAccess(state_.files, target); !access) {
        showFileError(windows_.desktop, target, access.error());
        return false;
    }
    TmdChecks checks(state_, windows_.modeler, windows_.showModeler);
    if (!checks.checkTRMessages() || !checks.checkSequences())
        return false;
    const Result<TmdContent> written = writeTMD(state_.view(), state_.files, target);
    if (written)
        reportTmd(target, *written);
    return true;
}

} // namespace zb
