#pragma once

#include <filesystem>

namespace zb {

/// The folder of settings.json: $ZELTOBENCH_CONFIG, otherwise $XDG_CONFIG_HOME/zeltobench, otherwise
/// ~/.config/zeltobench.
std::filesystem::path settingsFolder();

/// The folder of what the program keeps for the user: $ZELTOBENCH_STATE, else zeltobench below
/// $XDG_STATE_HOME, else below ~/.local/state. Empty when there is no home folder.
std::filesystem::path stateFolder();

} // namespace zb
