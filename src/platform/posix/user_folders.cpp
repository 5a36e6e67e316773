#include "platform/user_folders.h"

#include <cstdlib>
#include <optional>

namespace zb {

namespace {

namespace fs = std::filesystem;

std::optional<fs::path> folderFromEnvironment(const char* name) {
    const char* const value = std::getenv(name);
    if (value == nullptr || *value == '\0')
        return std::nullopt;
    return fs::path(value);
}

// One that depends on the working folder is ignored, as all programs do that follow the convention: each
// folder would have settings of its own.
std::optional<fs::path> sharedFolder(const char* name) {
    const std::optional<fs::path> folder = folderFromEnvironment(name);
    return folder && folder->is_absolute() ? folder : std::nullopt;
}

} // namespace

fs::path settingsFolder() {
    if (const auto chosen = folderFromEnvironment("ZELTOBENCH_CONFIG"))
        return *chosen;
    if (const auto config = sharedFolder("XDG_CONFIG_HOME"))
        return *config / "zeltobench";
    return folderFromEnvironment("HOME").value_or("/") / ".config" / "zeltobench";
}

fs::path stateFolder() {
    if (const auto chosen = folderFromEnvironment("ZELTOBENCH_STATE"))
        return *chosen;
    if (const auto state = sharedFolder("XDG_STATE_HOME"))
        return *state / "zeltobench";
    if (const auto home = folderFromEnvironment("HOME"))
        return *home / ".local" / "state" / "zeltobench";
    return {};
}

} // namespace zb
