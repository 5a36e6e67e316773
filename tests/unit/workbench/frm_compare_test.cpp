#include "workbench/frm_compare.h"

#include "controls/user_hands.h"
#include "platform/text.h"
#include "project/project_text.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace zb::test {
namespace {

constexpr const char* kProject = "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n## [EDIT SMD]\r\n"
                                 "* a\r\nA: S1 F1 H->E.\r\n* b\r\nB: S1 F3 H->E.\r\n";

struct CompareTest : ::testing::Test {
    CompareTest() {
        const auto file = folder / "P.zbp";
        std::ofstream(file, std::ios::binary) << kProject;
        application.start(file.string());
        application.comparisons.compareWithProject(
            "Other", parseProject(replaceAll(kProject, "S1 F1", "S1 F1 W")), CompareScope::Whole);
    }

    std::size_t rows() { return compare.tvwProject.nodes().count(); }
    UserHands::Refusal click(Control& control) { return hands.click(Target::whole(control)); }

    TemporaryFolder folder;
    SystemFileLayer files;
    Program program{files};
    Application& application = program.application;
    frmCompare& compare = application.frmCompare;
    UserHands hands{application.desktop};
};

TEST_F(CompareTest, CancelledForAllRowsItShowsWhatItHasShown) {
    ASSERT_TRUE(compare.visible());
    const std::size_t before = rows();
    program.screen.longWork = [](const auto& /*work*/) { return false; };
    click(compare.chkOnlyDifferences);
    EXPECT_TRUE(compare.visible());
    EXPECT_TRUE(compare.chkOnlyDifferences.checked());
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(compare.lblCount.text(), "1 of 1");
    program.screen.longWork = {};
    click(compare.chkOnlyDifferences);
    EXPECT_GT(rows(), before);
}

TEST_F(CompareTest, ReportsHowFarItIs) {
    std::vector<double> seen;
    program.screen.longWork = [&seen](const auto& work) {
        LongWork watched;
        work(Progress(watched));
        seen.push_back(watched.done());
        return true;
    };
    click(compare.chkOnlyDifferences);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_GT(seen.front(), 0.8);
}

TEST_F(CompareTest, HasItsKeysAmongThoseThatTheHelpLists) {
    const auto& all = application.desktop.keys().all();
    const auto isListed = [&](int shift) {
        return std::any_of(all.begin(), all.end(), [&](const KeyCommand& command) {
            return command.key.code == 118 && command.key.shift == shift && command.place.window == &compare;
        });
    };
    EXPECT_TRUE(isListed(0));
    EXPECT_TRUE(isListed(kShiftKey));
}

} // namespace
} // namespace zb::test
