#include "platform/text_file.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <utility>

namespace zb {
namespace {

namespace fs = std::filesystem;

/// A user who cancels builds of a project with an item that a build normalizes.
struct CancelledBuild : testing::Test {
    CancelledBuild() {
        fs::create_directories(folder / "Line/ZeltoInfo");
        test::writeFile(folder / "Line/Line.zbp",
                        encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
                                    "* Are you there\r\nS1F1: S1 F1 W H<->E.\r\n"
                                    "* Data\r\nS1F2: S1 F2 H<-E\r\n    A 3 NAME 'x'.\r\n"));
        test::writeFile(smd, "old");
        test::writeFile(tmd, "old");
        application().start((folder / "Line/Line.zbp").string());
        Node& message = *editor().liveTree().find("S1F2");
        editor().liveTree().select(message.child());
        editor().treeInteraction.nodeClick();
        message.child()->setText("A 3 NAME 'x'");
    }

    /// Calls `moment` when the work begins, and then cancels it.
    void cancelWorks(std::function<void()> moment = {}) {
        program.screen.longWork = [this, moment = std::move(moment)](const auto& work) {
            LongWork cancelled;
            cancelled.cancel();
            ++works;
            if (moment)
                moment();
            EXPECT_THROW(work(Progress(cancelled)), Cancelled);
            return false;
        };
    }

    void addTransaction() {
        auto record = std::make_unique<TRMessageRecord>();
        record->setName("Ask");
        record->setSECSMessage("S1F1");
        record->setDirection(kToEquip);
        application().TRModelStore->addTRMessage(std::move(record));
    }

    std::string itemText() { return editor().liveTree().find("S1F2")->child()->text(); }
    Application& application() { return program.application; }
    frmSECSEditor& editor() { return application().frmSECSEditor; }

    SystemFileLayer files;
    test::TemporaryFolder folder;
    fs::path smd = folder / "Line/ZeltoInfo/Line.smd";
    fs::path tmd = folder / "Line/ZeltoInfo/Line.tmd";
    test::Program program{files, (folder / "state").string()};
    int works = 0;
};

TEST_F(CancelledBuild, OfDefinitionsLeavesFileAndWindowsAsTheyWere) {
    const SECSMessageStore* store = application().SECSMessageStore.get();
    cancelWorks();
    EXPECT_FALSE(application().builds.buildSmd());

    EXPECT_EQ(works, 1);
    EXPECT_EQ(test::readFile(smd), "old");
    EXPECT_EQ(test::namesIn(smd.parent_path()), (std::set<std::string>{"Line.smd", "Line.tmd"}));
    EXPECT_EQ(itemText(), "A 3 NAME 'x'");
    EXPECT_EQ(application().SECSMessageStore.get(), store);
    EXPECT_EQ(editor().txtMsgName.text(), "S1F2");
    EXPECT_TRUE(editor().picItem.visible());
    EXPECT_TRUE(program.screen.boxes.empty());
}

TEST_F(CancelledBuild, SucceedsTheNextTime) {
    cancelWorks();
    EXPECT_FALSE(application().builds.buildSmd());
    program.screen.longWork = {};
    EXPECT_TRUE(application().builds.buildSmd());
    EXPECT_EQ(itemText(), "A 3 NAME 'x  '");
    EXPECT_NE(test::readFile(smd).find("<A 3 NAME 'x  '>."), std::string::npos);
    EXPECT_EQ(editor().txtMsgName.text(), "");
}

TEST_F(CancelledBuild, OfTransactionsLeavesTheFile) {
    addTransaction();
    ASSERT_TRUE(application().builds.buildSmd());
    cancelWorks();
    EXPECT_FALSE(application().builds.buildTmd());

    EXPECT_EQ(works, 1);
    EXPECT_EQ(test::readFile(tmd), "old");
    EXPECT_TRUE(program.screen.boxes.empty());
    program.screen.longWork = {};
    EXPECT_TRUE(application().builds.buildTmd());
    EXPECT_NE(test::readFile(tmd).find("Ask"), std::string::npos);
}

TEST_F(CancelledBuild, OfAPlugInGeneratesNothing) {
    cancelWorks();
    fire(application().frmMain.mnuBuildZeltoPlugIn.onClick);
    EXPECT_EQ(works, 1);
    EXPECT_EQ(application().frmResult.rtbResult.text(), "");
    EXPECT_EQ(itemText(), "A 3 NAME 'x'");
}

TEST_F(CancelledBuild, LeavesTheEditorWhenItWasTheWayToTheModeler) {
    const auto values = [this] {
        Toolbar& bar = application().frmMain.tbrMain;
        return std::pair(bar.button("Editor").value(), bar.button("Modeler").value());
    };
    const auto before = values();
    cancelWorks([this] { EXPECT_FALSE(application().frmTRModeler.visible()); });
    application().showModeler();

    EXPECT_EQ(works, 1);
    EXPECT_FALSE(application().frmTRModeler.visible());
    EXPECT_EQ(values(), before);
    EXPECT_EQ(itemText(), "A 3 NAME 'x'");
    EXPECT_EQ(editor().txtMsgName.text(), "S1F2");
    program.screen.longWork = {};
    application().showModeler();
    EXPECT_TRUE(application().frmTRModeler.visible());
}

TEST_F(CancelledBuild, OfTransactionsIntoAFolderIsRefused) {
    addTransaction();
    ASSERT_TRUE(application().builds.buildSmd());
    fs::remove(tmd);
    fs::create_directory(tmd);
    EXPECT_FALSE(application().builds.buildTmd());
    EXPECT_EQ(program.screen.boxes.size(), 1U);
    EXPECT_TRUE(fs::is_directory(tmd));
}

} // namespace
} // namespace zb
