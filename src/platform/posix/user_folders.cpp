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

} // namespace

fs::path settingsFolder() {
    if (const auto chosen = folderFromEnvironment("ZELTOBENCH_CONFIG"))
        return *chosen;
    if (const auto config = folderFromEnvironment("XDG_CONFIG_HOME"))
        return *config / "zeltobench";
    return folderFromEnvironment("HOME").value_or("/") / ".config" / "zeltobench";
}

fs::path stateFolder() {
    if (const auto chosen = folderFromEnvironment("ZELTOBENCH_STATE"))
        return *chosen;
    if (const auto state = folderFromEnvironment("XDG_STATE_HOME"))
        return *state / "zeltobench";
    if (const auto home = folderFromEnvironment("HOME"))
        return *home / ".local" / "state" / "zeltobench";
    return {};
}

} // namespace zb
