#include "console/message_files.h"

#include "platform/text.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>

namespace zb {

namespace {

// Well below what file systems allow, with room for a number and the ending.
constexpr std::size_t kLongest = 100;

bool isSafe(char32_t letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == '_' || letter == '-' || letter == '.';
}

/// Names that stand for devices on some systems, whatever their ending.
bool isDevice(std::string_view name) {
    constexpr std::array<std::string_view, 4> kDevices{"CON", "PRN", "AUX", "NUL"};
    const std::string stem = upper(before(name, "."));
    const bool numbered = stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) &&
                          stem[3] >= '0' && stem[3] <= '9';
    return numbered || std::find(kDevices.begin(), kDevices.end(), stem) != kDevices.end();
}

std::string safeName(std::string_view name) {
    std::string safe;
    for (const char32_t letter : codePoints(name)) {
        if (safe.size() >= kLongest)
            break;
        safe += isSafe(letter) ? static_cast<char>(letter) : '_';
    }
    if (safe.empty() || safe.front() == '.' || safe.front() == '-' || isDevice(safe))
        safe.insert(0, "_");
    return safe;
}

} // namespace

std::vector<std::string> messageFileNames(const SECSLibraryStore::Records& records,
                                          const std::string& ending) {
    std::unordered_set<std::string> taken;
    std::vector<std::string> names;
    names.reserve(records.size());
    for (const SECSMessageRecord* record : records) {
        const std::string wanted = safeName(record->getName());
        std::string name = wanted;
        for (int number = 2; !taken.insert(lower(name)).second; ++number)
            name = wanted + "_" + std::to_string(number);
        names.push_back(name + ending);
    }
    return names;
}

} // namespace zb
