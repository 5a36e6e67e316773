#include "golden/golden_text.h"

#include "support/temporary_folder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>

namespace zb::test {

namespace {

std::string firstDifference(const std::string& expected, const std::string& actual) {
    std::istringstream wanted(expected);
    std::istringstream found(actual);
    std::string wantedLine;
    std::string foundLine;
    for (int line = 1;; ++line) {
        const bool more = static_cast<bool>(std::getline(wanted, wantedLine));
        const bool moreFound = static_cast<bool>(std::getline(found, foundLine));
        if (!more && !moreFound)
            return "only the last line end differs";
        if (more && moreFound && wantedLine == foundLine)
            continue;
        return "line " + std::to_string(line) + "\n  expected: " + (more ? wantedLine : "(end)") +
               "\n  found:    " + (moreFound ? foundLine : "(end)");
    }
}

void put(const std::filesystem::path& path, std::string_view bytes) {
    std::filesystem::create_directories(path.parent_path());
    writeFile(path, bytes);
}

} // namespace

std::filesystem::path sourceFolder() {
    return ZB_SOURCE_FOLDER;
}

void expectGolden(std::string_view actual, const std::string& name) {
    const std::filesystem::path golden = sourceFolder() / "tests/golden" / name;
    const std::string expected = readFile(golden);
    if (expected == actual)
        return;
    if (std::getenv("ZB_ACCEPT_GOLDEN") != nullptr) {
        put(golden, actual);
        FAIL() << golden << " was rewritten; look at the difference before you commit it";
    }
    const std::filesystem::path kept = std::filesystem::path("golden-actual") / name;
    put(kept, actual);
    FAIL() << golden << " differs from " << std::filesystem::absolute(kept) << "\n"
           << firstDifference(expected, std::string(actual));
}

} // namespace zb::test
