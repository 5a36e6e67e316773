#include "project/version_changes.h"

#include <gtest/gtest.h>

namespace zb::test {
namespace {

std::string project(const std::string& messages) {
    return "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n## [EDIT SMD]\r\n" + messages +
           "###[TRANSACTION MODEL] 1\r\n* no message\r\n";
}

const std::string kOne = "* d\r\nOne: S1 F1 W H->E.\r\n";
const std::string kTwo = "* \r\nTwo: S1 F3 W H->E\r\n    A 3 X 'abc'.\r\n";

TEST(VersionChanges, CountsWhatIsAddedChangedAndRemoved) {
    const std::string three = "* \r\nThree: S1 F5 W H->E.\r\n";
    std::string changed = kTwo;
    changed.replace(changed.find("abc"), 3, "abd");
    EXPECT_EQ(describeChanges(project(kOne), project(kOne + kTwo)), "1 message added");
    EXPECT_EQ(describeChanges(project(kOne + kTwo), project(kTwo)), "1 message removed");
    EXPECT_EQ(describeChanges(project(kTwo), project(changed)), "1 message changed");
    EXPECT_EQ(describeChanges(project(kOne + kTwo), project(changed + three)),
              "1 message added, 1 changed, 1 removed");
    EXPECT_EQ(describeChanges(project({}), project(kOne + kTwo)), "2 messages added");
}

TEST(VersionChanges, TheDescriptionBelongsToTheMessage) {
    std::string described = kOne;
    described.replace(2, 1, "another");
    EXPECT_EQ(describeChanges(project(kOne), project(described)), "1 message changed");
}

TEST(VersionChanges, TheOrderAndOtherSectionsAreNoChangeOfAMessage) {
    EXPECT_EQ(describeChanges(project(kOne + kTwo), project(kTwo + kOne)), "no message changed");
    EXPECT_EQ(describeChanges(project(kOne), project(kOne) + "## [OTHER]\r\n* x\r\n"), "no message changed");
    EXPECT_EQ(describeChanges(project(kOne), project(kOne)), "nothing changed");
}

TEST(VersionChanges, TextsThatAreNoProjectsCountAsEmpty) {
    EXPECT_EQ(describeChanges({}, project(kOne)), "1 message added");
    EXPECT_EQ(describeChanges(project(kOne), "x"), "1 message removed");
    EXPECT_EQ(describeChanges("* a\r\n", "## [EDIT SMD]\r\n* "), "1 message added");
}

} // namespace
} // namespace zb::test
