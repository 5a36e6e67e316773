#include "script/setting_names.h"

#include "platform/setting_names.h"
#include "script/script_failure.h"

#include <algorithm>
#include <array>
#include <string>

namespace zb {

void checkSettingName(std::string_view name) {
    constexpr std::array kNames{kRecentProject, kSrcGen, kPlugInType, kMessageFormat, kAnsiCodePage};
    if (std::find(kNames.begin(), kNames.end(), name) == kNames.end())
        throw ScriptFailure("RecentProject, SRCGen, PlugInType, MessageFormat or AnsiCodePage",
                            std::string(name));
}

} // namespace zb
