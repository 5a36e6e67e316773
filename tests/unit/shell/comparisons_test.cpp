#include "shell/comparisons.h"

#include "compare/project_comparison.h"
#include "controls/user_hands.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_text.h"
#include "support/document_dump.h"
#include "unit/compare/random_project.h"
#include "unit/shell/program.h"
#include "unit/shell/undo_witness.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace zb::test {
namespace {

namespace fs = std::filesystem;

using ::testing::HasSubstr;

constexpr int kDifferenceKey = 118; // F7

struct ComparisonsTest : ::testing::Test {
    ComparisonsTest() {
        fs::create_directories(folder / "Etcher");
        fs::copy_file(fs::path(ZB_SOURCE_FOLDER) / "examples/etcher/Etcher.zbp", project());
        application.start(project());
    }

    std::string project() const { return (folder / "Etcher/Etcher.zbp").string(); }
    std::string textOfFile() const { return decodeProject(readBytes(project()).value()).text; }
    /// A file with the project's text in which each of the first texts is replaced by the second one.
    std::string fileWith(const std::vector<std::pair<std::string, std::string>>& changes) const {
        std::string text = textOfFile();
        for (const auto& [before, after] : changes) {
            EXPECT_THAT(text, HasSubstr(before));
            text = replaceAll(text, before, after);
        }
        std::string path = (folder / "Other.zbp").string();
        writeFile(path, encodeUtf16(text));
        return path;
    }
    void compareWith(const std::string& path) { application.comparisons.compareWithFile(path, {}); }
    void click(Control& control) { ASSERT_EQ(hands.click(Target::whole(control)), "") << control.name(); }
    void chooseRow(int row) {
        Target target = Target::whole(window.tvwProject);
        target.node = window.tvwProject.nodes().at(row);
        ASSERT_EQ(hands.click(target), "");
    }
    std::string dump() { return dumpMessages(application) + dumpModel(application); }
    std::string noticed() const { return application.frmWorkbench.notices.lblNotice.text(); }
    Node* selected(Tree& tree) const { return tree.nodes().selected(); }

    TemporaryFolder folder;
    SystemFileLayer files;
    Program program{files, (folder / "state").string()};
    Application& application = program.application;
    frmCompare& window = application.frmCompare;
    UserHands hands{application.desktop};
};

TEST_F(ComparisonsTest, TheWindowShowsBothSidesAtTheFirstDifference) {
    compareWith(fileWith({{"AreYouThere: S1 F1 W", "AreYouThere: S1 F1"}}));
    ASSERT_TRUE(window.visible());
    EXPECT_EQ(window.lblLeft.text(), "Other.zbp");
    EXPECT_EQ(window.lblProject.text(), "Etcher");
    EXPECT_EQ(window.lblCount.text(), "1 of 1");
    ASSERT_NE(selected(window.tvwLeft), nullptr);
    EXPECT_EQ(selected(window.tvwLeft)->text(), "~! wait: false");
    EXPECT_EQ(selected(window.tvwProject)->text(), "~! wait: true");
    EXPECT_EQ(selected(window.tvwProject)->parent()->text(), "~ AreYouThere: S1 F1 W <R> H<->E");
    EXPECT_THAT(window.lblDifference.text(), HasSubstr("changed wait: \"false\" -> \"true\" - breaking"));
    EXPECT_FALSE(window.pnlRight.visible());
}

TEST_F(ComparisonsTest, NextAndPreviousGoThroughTheDifferences) {
    compareWith(fileWith({{"AreYouThere: S1 F1 W", "AreYouThere: S1 F1"},
                          {"* The host is alive; it has no model to name", "* One"},
                          {"* The etcher names its model and software revision", "* Two"}}));
    EXPECT_EQ(window.lblCount.text(), "1 of 3");
    hands.key(window.tvwProject, {kDifferenceKey, 0});
    EXPECT_EQ(window.lblCount.text(), "2 of 3");
    click(window.cmdNext);
    EXPECT_EQ(window.lblCount.text(), "3 of 3");
    EXPECT_FALSE(window.cmdNext.enabled());
    hands.key(window.tvwLeft, {kDifferenceKey, kShiftKey});
    EXPECT_EQ(window.lblCount.text(), "2 of 3");
}

TEST_F(ComparisonsTest, AllRowsAreShownWhenThoseThatDifferAreNotEnough) {
    compareWith(fileWith({{"AreYouThere: S1 F1 W", "AreYouThere: S1 F1"}}));
    const std::size_t few = window.tvwProject.nodes().count();
    click(window.chkOnlyDifferences);
    EXPECT_GT(window.tvwProject.nodes().count(), few * 20);
    EXPECT_EQ(window.tvwLeft.nodes().count(), window.tvwProject.nodes().count());
}

TEST_F(ComparisonsTest, TreesAreExpandedAlike) {
    compareWith(fileWith({{"'ZE3000'", "'ZE4000'"}}));
    window.tvwProject.nodes().at(2)->setExpanded(false);
    EXPECT_FALSE(window.tvwLeft.nodes().at(2)->expanded());
    window.tvwLeft.nodes().at(2)->setExpanded(true);
    EXPECT_TRUE(window.tvwProject.nodes().at(2)->expanded());
}

TEST_F(ComparisonsTest, ATakenFieldIsOneStepThatCanBeUndone) {
    compareWith(fileWith({{"AreYouThere: S1 F1 W", "AreYouThere: S1 F1"}}));
    const std::string before = dump();
    EXPECT_EQ(window.lblCount.text(), "1 of 1");
    click(window.cmdTakeLeft);
    EXPECT_EQ(application.frmSECSEditor.liveTree().find("AreYouThere")->text(),
              "AreYouThere: S1 F1 <R> H<->E");
    EXPECT_EQ(window.lblCount.text(), "No differences");
    EXPECT_EQ(application.frmWorkbench.cmdUndo.toolTip(), "Undo: Take AreYouThere");
    click(application.frmWorkbench.cmdUndo);
    EXPECT_EQ(dump(), before);
    EXPECT_EQ(window.lblCount.text(), "1 of 1");
    click(application.frmWorkbench.cmdRedo);
    EXPECT_EQ(window.lblCount.text(), "No differences");
    EXPECT_FALSE(application.frmWorkbench.cmdRedo.enabled());
}

TEST_F(ComparisonsTest, StepsInBothDocumentsAreUndoneInTheirOrder) {
    compareWith(
        fileWith({{"AreYouThere: S1 F1 W", "AreYouThere: S1 F1"}, {"  Report True", "  Report False"}}));
    const std::string before = dump();
    click(window.cmdTakeLeft);
    const std::string between = dump();
    chooseRow(1);
    click(window.cmdTakeLeft);
    const std::string after = dump();
    ASSERT_NE(between, after);
    click(application.frmWorkbench.cmdUndo);
    EXPECT_EQ(dump(), between);
    click(application.frmWorkbench.cmdUndo);
    EXPECT_EQ(dump(), before);
    click(application.frmWorkbench.cmdRedo);
    EXPECT_EQ(dump(), between);
    click(application.frmWorkbench.cmdRedo);
    EXPECT_EQ(dump(), after);
}

TEST_F(ComparisonsTest, UnreadableFilesAreReported) {
    compareWith((folder / "None.zbp").string());
    EXPECT_FALSE(window.visible());
    EXPECT_EQ(noticed(), "None.zbp cannot be compared: there is no such file");
    writeFile((folder / "Bad.sml").string(), "<<<<");
    compareWith((folder / "Bad.sml").string());
    EXPECT_EQ(noticed(), "Bad.sml cannot be compared: no message could be read");
}

TEST_F(ComparisonsTest, OfALibraryOnlyMessagesAreCompared) {
    writeFile((folder / "Lib.smd").string(), "* Lib\r\nAreYouThere: S1 F1 W <R> H<->E.\r\n");
    compareWith((folder / "Lib.smd").string());
    EXPECT_EQ(window.tvwProject.nodes().at(1)->text(), "SECS messages");
    EXPECT_EQ(window.tvwProject.nodes().firstRoot()->next(), nullptr);
}

TEST_F(ComparisonsTest, AnotherProjectEndsTheComparison) {
    compareWith(fileWith({{"'ZE3000'", "'ZE4000'"}}));
    application.projects.openProject(project());
    EXPECT_FALSE(window.visible());
    EXPECT_EQ(window.tvwProject.nodes().count(), 0U);
}

TEST_F(ComparisonsTest, WhatChangesInTheEditorIsComparedOnReturn) {
    compareWith(fileWith({{"'ZE3000'", "'ZE4000'"}}));
    const std::string count = window.lblCount.text();
    application.showEditor();
    application.frmSECSEditor.liveTree().find("AreYouThere")->previous()->setText("changed here");
    hands.activate(window);
    EXPECT_NE(window.lblCount.text(), count);
}

/// Everything that two random versions of a project differ in is taken, row by row; then all of it is undone.
class TakenRowByRow : public ComparisonsTest, public ::testing::WithParamInterface<unsigned> {};

TEST_P(TakenRowByRow, TheProjectsAreEqualAndUndoBringsAllBack) {
    RandomProject random(GetParam(), 10);
    writeFile(project(), encodeUtf16(random.text()));
    ASSERT_TRUE(application.projects.openProject(project()));
    random.edit(GetParam() + 500, 8, "o");
    const Project other = random.project();
    application.comparisons.compareWithProject("Other", random.project(), CompareScope::Whole);
    std::vector<std::string> states;
    for (int most = 200; window.lblCount.text() != "No differences" && most > 0; --most) {
        states.push_back(dump());
        hands.key(window.tvwProject, {kKeyHome, 0});
        hands.key(window.tvwProject, {kDifferenceKey, 0});
        click(window.cmdTakeLeft);
        ASSERT_NE(dump(), states.back()) << noticed();
    }
    const Project open = parseProject(application.work.composeWork());
    EXPECT_TRUE(compareProjects(open, other).empty());
    for (; !states.empty(); states.pop_back()) {
        ASSERT_TRUE(application.frmWorkbench.cmdUndo.enabled());
        click(application.frmWorkbench.cmdUndo);
        expectEqual(dump(), states.back(), "after an undo");
        ASSERT_FALSE(HasFailure());
    }
}

INSTANTIATE_TEST_SUITE_P(Random, TakenRowByRow, ::testing::Range(1U, 21U));

} // namespace
} // namespace zb::test
