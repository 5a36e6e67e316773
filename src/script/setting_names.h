#pragma once

#include <string_view>

namespace zb {

/// Throws ScriptFailure, with the existing names, for a name that is not a setting.
void checkSettingName(std::string_view name);

} // namespace zb
