#include "shell/build_commands.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "modeler/tmd_checks.h"
#include "outputs/tmd_document.h"
#include "outputs/transaction_check.h"
#include "platform/file_access.h"
#include "platform/file_replacer.h"
#include "platform/setting_names.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "shell/file_error_box.h"

#include <cerrno>
#include <filesystem>
#include <optional>
#include <utility>

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

// Nearly all of it is done in the long work, which leaves the windows alone. Only a build that does not
// succeed empties the target, and says why.
bool BuildCommands::buildSmdTo(const std::string& target, DefinitionForm form) {
    const WalkMode mode = form == DefinitionForm::Mdf ? WalkMode::BuildMdf : WalkMode::BuildSmd;
    frmSECSEditor& editor = windows_.editor;
    PreparedWalk walk;
    bool written = false;
    const bool done = runLongWork(target, [&](const Progress& progress) {
        constexpr double kWalked = 0.7;
        constexpr double kComposed = 0.8;
        walk = editor.prepareWalk(mode, progress.part(0, kWalked));
        if (!walk.outcome.status.empty() || editor.liveTree().empty())
            return;
        const std::string text = composeDefinitions(*walk.store, form);
        progress.part(kWalked, kComposed).at(1, 1);
        written = replaceFile(state_.files, target, text, progress.part(kComposed, 1)).ok();
    });
    if (!done)
        return false;
    if (written) {
        editor.takeWalk(std::move(walk));
        return reportDefinitions(target);
    }
    if (const Result<void> access = checkFileAccess(state_.files, target); !access) {
        showFileError(windows_.desktop, target, access.error());
        return false;
    }
    if (!isBlank(editor.takeWalk(std::move(walk))))
        return false;
    return editor.liveTree().empty() || writeDefinitions(target, form);
}

bool BuildCommands::writeDefinitions(const std::string& target, DefinitionForm form) {
    const Result<void> written =
        replaceFile(state_.files, target, composeDefinitions(*state_.SECSMessageStore, form));
    if (written)
        return reportDefinitions(target);
    const FileError& error = written.error();
    if (error.number == ENOENT || error.number == ENOTDIR)
        windows_.desktop.showBox("You cannot save this file because the file path is not found.");
    else
        showFileError(windows_.desktop, target, error);
    return false;
}

bool BuildCommands::reportDefinitions(const std::string& target) {
    postBuilt(target, counted(state_.SECSMessageStore->getMessages().size(), "message"));
    return true;
}

bool BuildCommands::runLongWork(const std::string& target, const std::function<void(const Progress&)>& work) {
    return windows_.desktop.screen().doLongWork("Building " + fileNameOf(target), work);
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
    return buildTmdTo(state_.tmdFilePath());
}

// As for the definitions: what the checks of the windows refuse is not tried before them.
bool BuildCommands::buildTmdTo(const std::string& target) {
    std::optional<TmdContent> content;
    const bool done = runLongWork(target, [&](const Progress& progress) {
        if (!mayBuildTmd(state_.view()) || !checkFileAccessKeeping(state_.files, target))
            return;
        if (Result<TmdContent> written = writeTMD(state_.view(), state_.files, target, progress); written)
            content = std::move(written).value();
    });
    if (!done)
        return false;
    if (!content) {
        if (const Result<void> access = checkFileAccess(state_.files, target); !access) {
            showFileError(windows_.desktop, target, access.error());
            return false;
        }
        TmdChecks checks(state_, windows_.modeler, windows_.showModeler);
        if (!checks.checkTRMessages() || !checks.checkSequences())
            return false;
        if (Result<TmdContent> written = writeTMD(state_.view(), state_.files, target); written)
            content = std::move(written).value();
    }
    if (content)
        reportTmd(target, *content);
    return true;
}

} // namespace zb
