#include "outputs/build_commands.h"

#include "messages/editor_pane.h"
#include "messages/smd/smd_writer.h"
#include "outputs/file_access.h"
#include "outputs/tmd_checks.h"
#include "platform/settings.h"
#include "platform/text.h"

namespace zb {

bool BuildCommands::buildSmd() {
    const bool mdf = trim(state_.settings.getOption("MessageFormat")) == "mdf";
    return mdf ? buildSmdTo(state_.mdfFilePath(), "BUILD_MDF")
               : buildSmdTo(state_.smdFilePath(), "BUILD_SMD");
}

bool BuildCommands::buildSmdTo(const std::string& target, std::string_view mode) {
    fileError_.reset();
    if (!checkFileAccess(state_, target))
        return false;
    SmdWriter writer(state_, windows_.editor);
    const std::string status = writer.buildMessageText(target, mode, windows_.messageTree());
    fileError_ = writer.fileError();
    if (!isBlank(status))
        return false;
    // The walk keeps silent about a full disk and the like.
    if (fileError_)
        showFileError(state_, target, *fileError_);
    return !fileError_;
}

bool BuildCommands::buildTmd() {
    return buildTmdTo(state_.tmdFilePath());
}

bool BuildCommands::buildTmdTo(const std::string& target) {
    fileError_.reset();
    tmdContent_.reset();
    endedAtCheck_ = false;
    if (state_.TRModelStore == nullptr || state_.TRModelStore->TRMessages().empty())
        return true;
    if (!checkFileAccess(state_, target))
        return false;
    TmdChecks checks(state_, windows_.modeler, windows_.showModeler);
    endedAtCheck_ = !checks.checkTRMessages() || !checks.checkSequences();
    if (endedAtCheck_)
        return false;
    if (const Result<TmdContent> written = writeTMD(state_, target))
        tmdContent_ = *written;
    else
        fileError_ = written.error();
    return true;
}

} // namespace zb
