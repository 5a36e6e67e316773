#pragma once

#include <filesystem>

namespace zb {

/// The folder of settings.json: $ZELTOBENCH_CONFIG, otherwise $XDG_CONFIG_HOME/zeltobench, otherwise
/// ~/.config/zeltobench.
std::filesystem::path settingsFolder();

/// The state folder of the user: $ZELTOBENCH_STATE, otherwise $XDG_STATE_HOME/zeltobench, otherwise
/// ~/.local/state/zeltobench. Empty when there is no home folder.
std::filesystem::path stateFolder();

} // namespace zb
