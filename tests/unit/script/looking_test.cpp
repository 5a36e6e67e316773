#include "script_fixture.h"

namespace zb {
namespace {

TEST(Looking, ReadsThePropertiesOfEachKind) {
    expectPasses("start\nexpect frmTest caption \"Test window\"\nexpect frmTest visible true\n"
                 "expect frmTest pointer 0\n");
    expectPasses("start\nexpect frmTest.txtName text \"\"\nexpect frmTest.txtName enabled true\n"
                 "expect frmTest.txtName visible true\nexpect frmTest.txtName locked false\n"
                 "expect frmTest.txtName focused true\nexpect frmTest.txtName selectedtext \"\"\n");
    expectPasses("start\nexpect frmTest.lblLog text \"\"\nexpect frmTest.lblLog visible true\n");
    expectPasses("start\nexpect frmTest.chkWait value 0\nexpect frmTest.chkWait caption &Wait\n"
                 "expect frmTest.chkWait enabled true\nexpect frmTest.chkWait focused false\n");
    expectPasses("start\nexpect frmTest.optType[1] value false\nexpect frmTest.optType[1] caption &Host\n"
                 "expect frmTest.optType[1] enabled true\nexpect frmTest.optType[1] focused false\n");
    expectPasses("start\nexpect frmTest.cmdAsk caption &Ask\nexpect frmTest.cmdAsk enabled true\n"
                 "expect frmTest.cmdAsk focused false\n");
    expectPasses("start\nexpect frmTest.picPane caption Pane\nexpect frmTest.picPane enabled true\n"
                 "expect frmTest.picPane visible true\n");
    expectPasses("start\nexpect frmTest.mnuClear caption Clear(&C)\nexpect frmTest.mnuClear enabled true\n"
                 "expect frmTest.mnuClear visible true\nexpect frmTest.mnuClear checked false\n"
                 "expect frmTest.mnuPopup visible false\n");
    expectPasses("start\nexpect frmTest.tbrMain enabled true\nexpect frmTest.tbrMain visible true\n"
                 "expect frmTest.tbrMain[SMD] enabled true\nexpect frmTest.tbrMain[TMD] enabled false\n"
                 "expect frmTest.tbrMain[SMD] value 0\nexpect frmTest.tbrMain[SMD] image 3\n"
                 "expect frmTest.stbMain[status] text Ready\n");
    expectPasses("start\nexpect frmTest.cboKind text \"\"\nexpect frmTest.cboKind count 3\n"
                 "expect frmTest.cboKind enabled true\nexpect frmTest.cboKind visible true\n"
                 "expect frmTest.cboKind focused false\n");
}

TEST(Looking, ReadsListsRowsAndColumns) {
    expectPasses("start\nexpect frmTest.lvwRows count 3\nexpect frmTest.lvwRows columns 2\n"
                 "expect frmTest.lvwRows selected 0\nexpect frmTest.lvwRows sortkey 0\n"
                 "expect frmTest.lvwRows sorted false\nexpect frmTest.lvwRows enabled true\n"
                 "expect frmTest.lvwRows visible true\nexpect frmTest.lvwRows focused false\n");
    expectPasses(
        "start\nexpect frmTest.lvwRows.columns[1] text Name\nexpect frmTest.lvwRows.columns[1] key name\n"
        "expect frmTest.lvwRows.columns[2] width 800\n");
    expectPasses(
        "start\nexpect frmTest.lvwRows[k2] text Data\nexpect frmTest.lvwRows[#2] key K2\n"
        "expect frmTest.lvwRows[#2] image msg\nexpect frmTest.lvwRows[#2] bold true\n"
        "expect frmTest.lvwRows[#2] forecolor #ff0000\nexpect frmTest.lvwRows[#1] forecolor text\n"
        "expect frmTest.lvwRows[#2] selected false\nexpect frmTest.lvwRows[#2] cells \"Data | S1,F2\"\n"
        "expect frmTest.lvwRows[#2] cell1 Data\nexpect frmTest.lvwRows[#2] cell2 S1,F2\n");
    expectPasses(
        "start\nexpectrows frmTest.lvwRows\n  Online | S1,F1\n  Data | S1,F2\n  Event | S6,F11\nend\n"
        "expectrows frmTest.cboKind\n  Host\n  ...\nend\nexpectrows frmTest.tbrMain\n  SMD\n  TMD\nend\n");
}

TEST(Looking, ReadsTreesAndNodes) {
    expectPasses("start\nexpect frmTest.tvwTree count 6\nexpect frmTest.tvwTree selected 0\n"
                 "expect frmTest.tvwTree backcolor window\nexpect frmTest.tvwTree enabled true\n"
                 "expect frmTest.tvwTree visible true\nexpect frmTest.tvwTree focused false\n");
    expectPasses(
        "start\nexpect frmTest.tvwTree[s1f3] text \"S1F3: S1 F3 H->E\"\nexpect frmTest.tvwTree[#2] key S1F3\n"
        "expect frmTest.tvwTree[S1F3] index 2\nexpect frmTest.tvwTree[S1F3] parent 0\n"
        "expect frmTest.tvwTree[S1F3/1] parent 2\nexpect frmTest.tvwTree[S1F3/1] children 2\n"
        "expect frmTest.tvwTree[#2/1/2] text B\nexpect frmTest.tvwTree[#3] bold false\n"
        "expect frmTest.tvwTree[#3] expanded true\nexpect frmTest.tvwTree[#3] selected false\n"
        "expect frmTest.tvwTree[#3] image \"\"\nexpect frmTest.tvwTree[#3] forecolor text\n"
        "expect frmTest.tvwTree[#3] backcolor #ff8080\nexpect frmTest.tvwTree[#1] backcolor window\n");
    expectPasses("start\nexpecttree frmTest.tvwTree\n  -\n  S1F3: S1 F3 H->E\n    L, 2\n      A\n      B\n  "
                 "S1F4\nend\n"
                 "expecttree frmTest.tvwTree[S1F3]\n  L, 2\n    A\n    B\nend\n"
                 "expecttree frmTest.tvwTree[S1F4]\nend\nexpecttree frmTest.tvwEmpty\nend\n");
}

TEST(Looking, ReportsWhatWasFoundInstead) {
    expectFails("start\nexpect frmTest caption \"A window\"\n",
                "2: expected frmTest caption \"A window\", found \"Test window\"");
    expectFails("start\nexpect frmTest nosuch 1\n",
                "2: expected a property nosuch of frmTest, found caption, visible, pointer");
    expectFails(
        "start\nexpect frmTest.lvwRows[#1] cell3 a\n",
        "2: expected a property cell3 of frmTest.lvwRows[#1], found text, key, image, bold, forecolor, "
        "selected, cells");
    expectFails("start\nexpecttree frmTest.tvwTree[S1F3]\n  L, 2\n    C\nend\n",
                "2: expected \"  C\" in line 2, found \"  A\" in\n  L, 2\n    A\n    B");
    expectFails("start\nexpecttree frmTest.lblLog\nend\n",
                "2: expected a tree or a node, found frmTest.lblLog");
    expectFails("start\nexpectrows frmTest.tvwTree\nend\n",
                "2: expected a list, a combo or a toolbar, found frmTest.tvwTree");
}

TEST(Looking, ReportsWhichNamesThereAre) {
    expectFails("start\nexpect frmNone visible true\n",
                "2: expected a window of frmNone, found frmDialog, frmTest");
    expectFails("start\nexpect frmDialog.cmdNone visible true\n",
                "2: expected a control cmdNone of frmDialog, found txtValue, cmdOK, cmdCancel");
    expectFails("start\nclick frmTest.tbrMain[PIF]\n",
                "2: expected a member [PIF] of frmTest.tbrMain, found SMD, TMD");
    expectFails("start\nexpect frmTest.stbMain[x] text a\n",
                "2: expected a member [x] of frmTest.stbMain, found Status");
    expectFails("start\nclick frmTest.tvwTree[#7]\n",
                "2: expected a member [#7] of frmTest.tvwTree, found 6 nodes without it");
    for (const char* member : {"#0", "S1F9", "S1F3/2", "S1F3/1/0", "S1F3/x", "", "#2/1/1/1"}) {
        const std::string name = member;
        expectFails("start\nclick frmTest.tvwTree[" + name + "]\n",
                    "2: expected a member [" + name + "] of frmTest.tvwTree, found 6 nodes without it");
    }
    expectFails("start\nclick frmTest.lvwRows[#4]\n",
                "2: expected a member [#4] of frmTest.lvwRows, found 3 rows without it");
    expectFails("start\nclick frmTest.lvwRows.columns[3]\n",
                "2: expected a member [columns 3] of frmTest.lvwRows, found 2 columns");
    expectFails("start\nclick frmTest.cmdAsk[1]\n",
                "2: expected a member [1] of frmTest.cmdAsk, found a control without members");
    expectFails("start\nclick frmTest.cmdAsk[1\n", "2: expected a member in brackets after cmdAsk, found [1");
    expectFails("start\nclick app\n", "2: expected a control to act on, found app");
}

TEST(Looking, ShowsStatesAsJsonLines) {
    const ScriptOutcome outcome = runScript("start x\nshow app\nshow frmTest.chkWait\nshow frmTest.tvwEmpty\n"
                                            "show frmTest.optType[1]\nshow frmTest.stbMain[Status]\n");
    EXPECT_TRUE(outcome.passed) << outcome.err;
    EXPECT_NE(outcome.out.find(R"({"address":"app","ProjectName":"x","GeneratorRuns":2,)"),
              std::string::npos);
    EXPECT_NE(outcome.out.find(R"({"address":"frmTest.chkWait","value":0,"caption":"&Wait","enabled":true,)"
                               R"("focused":false,"visible":true})"
                               "\n"),
              std::string::npos);
    EXPECT_NE(outcome.out.find("{\"address\":\"frmTest.stbMain[Status]\",\"text\":\"Ready\"}\n"),
              std::string::npos);
}

TEST(Looking, ShowsTheMembersOfTreesListsAndWindows) {
    const ScriptOutcome tree = runScript("start\nshow frmTest.tvwTree\n");
    EXPECT_EQ(std::count(tree.out.begin(), tree.out.end(), '\n'), 7) << tree.out;
    const ScriptOutcome list = runScript("start\nshow frmTest.lvwRows\n");
    EXPECT_EQ(std::count(list.out.begin(), list.out.end(), '\n'), 4) << list.out;
    const ScriptOutcome window = runScript("start\nshow frmDialog\n");
    EXPECT_EQ(window.out.find(R"({"address":"frmDialog","caption":"Value","visible":false,"pointer":0})"),
              0U);
    EXPECT_EQ(std::count(window.out.begin(), window.out.end(), '\n'), 4) << window.out;
}

} // namespace
} // namespace zb
