#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zb {

class SettingsStore;

/// The project files that were opened or saved in this run and earlier ones, the latest first. They are kept
/// in the settings.
class RecentProjects {
public:
    static constexpr std::size_t kMost = 9;

    explicit RecentProjects(SettingsStore& settings) : settings_(settings) {}

    /// Full paths.
    std::vector<std::string> all() const;
    /// Puts the project before the others; one that is there already moves.
    void add(const std::string& path);
    void remove(const std::string& path);

private:
    void write(const std::vector<std::string>& paths);

    SettingsStore& settings_;
};

} // namespace zb
