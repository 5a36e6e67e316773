#pragma once

#include <filesystem>

namespace zb {

/// The folder of settings.json: $ZELTOBENCH_CONFIG, otherwise $XDG_CONFIG_HOME/zeltobench, otherwise
/// ~/.config/zeltobench. A relative $XDG_CONFIG_HOME is ignored.
std::filesystem::path settingsFolder();

/// The state folder of the user: $ZELTOBENCH_STATE, otherwise $XDG_STATE_HOME/zeltobench, otherwise
/// ~/.local/state/zeltobench. Empty when there is no home folder. A relative
/// $XDG_STATE_HOME is ignored.
std::filesystem::path stateFolder();

} // namespace zb
