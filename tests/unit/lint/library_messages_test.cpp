#include "messages/libraries/built_in.h"
#include "platform/text_file.h"
#include "support/temporary_folder.h"
#include "unit/lint/checked_project.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zb::test {
namespace {

using testing::ElementsAre;

TEST(LibraryMessages, GemAgreesWithTheStandards) {
    const std::string project = projectOfLibrary({gemLibraryText()});
    EXPECT_NE(project.find("S1 F13"), std::string::npos);
    EXPECT_THAT(placesOf(findingsOf(project)), ElementsAre());
}

TEST(LibraryMessages, SemiAgreesWithTheStandards) {
    EXPECT_THAT(placesOf(findingsOf(projectOfLibrary(semiLibraryBlocks()))), ElementsAre());
}

TEST(SampleProjects, TheEtcherAgreesWithTheStandards) {
    const std::string bytes = readFile(std::string(ZB_SOURCE_FOLDER) + "/examples/etcher/Etcher.zbp");
    const Findings findings = findingsOf(decodeProject(bytes).text);
    EXPECT_THAT(placesOf(findings), ElementsAre());
}

} // namespace
} // namespace zb::test
