#pragma once

#include <string_view>

namespace zb {

/// Throws ScriptFailure, with the names that there are, for a name that is no setting.
void checkSettingName(std::string_view name);

} // namespace zb
