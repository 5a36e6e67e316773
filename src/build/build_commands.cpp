#include "build/build_commands.h"

#include "build/file_access.h"
#include "messages/editor_pane.h"
#include "messages/module_state.h"
#include "messages/smd_writer.h"
#include "platform/settings.h"
#include "platform/text.h"

namespace zb {

bool BuildCommands::buildSmd() {
    const bool mdf = trim(state_.settings.getOption("MessageFormat")) == "mdf";
    return mdf ? buildSmdTo(state_.mdfFilePath(), "BUILD_MDF")
               : buildSmdTo(state_.smdFilePath(), "BUILD_SMD");
}

bool BuildCommands::buildSmdTo(const std::string& target, std::string_view mode) {
    currentBuildPath_ = target;
    fileError_.reset();
    if (!checkFileAccess(state_, target))
        return false;
    SmdWriter writer(state_, pane_);
    const std::string status = writer.buildMessageText(target, mode, liveTree_());
    fileError_ = writer.fileError();
    if (!isBlank(status))
        return false;
    // The walk keeps silent about a full disk and the like.
    if (fileError_)
        showFileError(state_, target, *fileError_);
    return !fileError_;
}

bool BuildCommands::buildTmd() {
    return true;
}

} // namespace zb
