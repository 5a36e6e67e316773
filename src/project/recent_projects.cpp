#include "project/recent_projects.h"

#include "platform/settings.h"
#include "platform/text.h"

#include <algorithm>

namespace zb {

namespace {

constexpr std::string_view kRecentProjects = "RecentProjects";
constexpr const char* kSeparator = "\n";

} // namespace

std::vector<std::string> RecentProjects::all() const {
    return split(settings_.stored(kSettingsKey, kRecentProjects).value_or(std::string()), kSeparator);
}

void RecentProjects::add(const std::string& path) {
    std::vector<std::string> paths = all();
    if (path.empty() || contains(path, kSeparator) || (!paths.empty() && paths.front() == path))
        return;
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    paths.resize(std::min(paths.size(), kMost));
    write(paths);
}

void RecentProjects::remove(const std::string& path) {
    std::vector<std::string> paths = all();
    if (std::erase(paths, path) > 0)
        write(paths);
}

void RecentProjects::write(const std::vector<std::string>& paths) {
    settings_.writeRegValue(kSettingsKey, kRecentProjects, join(paths, kSeparator));
}

} // namespace zb
