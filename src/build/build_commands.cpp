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
    currentBuildPath_ = mdf ? state_.mdfFilePath() : state_.smdFilePath();
    if (!checkFileAccess(state_, currentBuildPath_))
        return false;
    SmdWriter writer(state_, pane_);
    return isBlank(writer.buildMessageText(currentBuildPath_, mdf ? "BUILD_MDF" : "BUILD_SMD", liveTree_()));
}

bool BuildCommands::buildTmd() {
    return true;
}

} // namespace zb
