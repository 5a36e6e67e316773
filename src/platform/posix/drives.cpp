#include "platform/drives.h"

#include "platform/text.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <string_view>

namespace zb {

namespace {

// Where desktops mount removable media.
bool isRemovable(std::string_view mountPoint) {
    constexpr std::array<std::string_view, 3> kPlaces{"/media/", "/run/media/", "/mnt/"};
    return std::any_of(kPlaces.begin(), kPlaces.end(),
                       [&](std::string_view place) { return mountPoint.starts_with(place); });
}

// The mount table contains blanks and other separators as octal escapes.
std::string unescapeMountPoint(std::string_view text) {
    return replaceAll(replaceAll(text, "\\040", " "), "\\011", "\t");
}

bool liesOn(std::string_view path, std::string_view folder) {
    return folder.starts_with(path) &&
           (path.ends_with('/') || folder.size() == path.size() || folder[path.size()] == '/');
}

} // namespace

std::vector<std::string> listDrives() {
    std::vector<std::string> drives{"/ [File System]"};
    std::ifstream table("/proc/self/mounts");
    for (std::string line; std::getline(table, line);) {
        std::istringstream words(line);
        std::string device;
        std::string mountPoint;
        words >> device >> mountPoint;
        mountPoint = unescapeMountPoint(mountPoint);
        if (isRemovable(mountPoint))
            drives.push_back(mountPoint);
    }
    return drives;
}

std::string driveOf(const std::vector<std::string>& drives, const std::string& folder) {
    std::string best;
    std::size_t longest = 0;
    for (const std::string& drive : drives) {
        const std::string_view path = before(drive, " [");
        if (liesOn(path, folder) && path.size() > longest) {
            longest = path.size();
            best = drive;
        }
    }
    return best;
}

} // namespace zb
