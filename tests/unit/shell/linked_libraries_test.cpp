#include "controls/desktop.h"
#include "shell/frm_about.h"
#include "shell/linked_libraries.h"
#include "support/silent_screen.h"

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zb {
namespace {

using Lines = std::vector<std::string>;

Lines linesOf(const std::string& name) {
    std::ifstream file(std::string(ZB_SOURCE_FOLDER) + "/" + name);
    Lines lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    EXPECT_FALSE(lines.empty()) << name;
    return lines;
}

/// The lines after `start`, up to `end`.
Lines linesBetween(const Lines& lines, const std::string& start, const std::string& end) {
    const auto first = std::find(lines.begin(), lines.end(), start);
    if (first == lines.end())
        return {start + " is missing"};
    return {first + 1, std::find(first + 1, lines.end(), end)};
}

TEST(LinkedLibraries, AreInTheTableOfTheDocuments) {
    Lines expected;
    for (const LinkedLibrary& library : linkedLibraries())
        expected.push_back("| " + std::string(library.name) + " | " + std::string(library.licence) + " | " +
                           std::string(library.package) + " |");
    EXPECT_EQ(linesBetween(linesOf("docs/licences.md"), "|---|---|---|", ""), expected);
}

TEST(LinkedLibraries, AreInTheCopyrightFileOfThePackage) {
    Lines expected;
    for (const LinkedLibrary& library : linkedLibraries())
        expected.push_back("  " + std::string(library.name) + ": " + std::string(library.licence));
    Lines found = linesBetween(linesOf("packaging/copyright"), "Comment:", "Files: *");
    ASSERT_GT(found.size(), 2U);
    found.erase(found.begin(), found.begin() + 2);
    EXPECT_EQ(Lines(found.begin(), std::find(found.begin(), found.end(), " .")), expected);
}

TEST(LinkedLibraries, AreAllThatTheBuildInstalls) {
    Lines installed;
    for (const std::string& line : linesOf("packages.txt")) {
        if (line.ends_with("-dev"))
            installed.push_back(line);
    }
    Lines listed;
    for (const LinkedLibrary& library : linkedLibraries()) {
        if (library.package.ends_with("-dev"))
            listed.emplace_back(library.package);
    }
    EXPECT_THAT(listed, testing::UnorderedElementsAreArray(installed));
}

TEST(LinkedLibraries, AreInTheAboutBox) {
    test::SilentScreen screen;
    Desktop desktop(screen);
    const frmAbout window(desktop);
    EXPECT_THAT(window.lblDisclaimer.text(), testing::HasSubstr("No licence has been granted"));
    for (const LinkedLibrary& library : linkedLibraries())
        EXPECT_THAT(window.lblDisclaimer.text(),
                    testing::HasSubstr(std::string(library.name) + ": " + std::string(library.licence)));
}

} // namespace
} // namespace zb
