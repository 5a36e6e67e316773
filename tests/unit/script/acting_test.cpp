#include "script_fixture.h"

namespace zb {
namespace {

TEST(Acting, StartsWithACommandLineAndAgainAfterTheEnd) {
    expectPasses("start \"a b\"\nexpect app ProjectName \"a b\"\nexpect frmTest visible true\n"
                 "close frmTest\nexpect frmTest visible false\nstart\nexpect app ProjectName \"\"\n");
    expectFails("start\nstart\n", "2: expected a program that is not running, found a running one");
}

TEST(Acting, LooksButCannotActBeforeTheStart) {
    expectPasses("expect frmTest visible false\nexpect frmTest.lblLog text \"\"\n");
    expectFails("click frmTest.cmdTell\n", "1: expected click to take place, found frmTest is not shown");
}

TEST(Acting, TakesARefusedCloseForNoFault) {
    expectPasses("start\npaste frmTest.txtName stay\nclose frmTest\nexpect frmTest visible true\n");
}

TEST(Acting, ClicksEachKindOfControl) {
    expectPasses("start\nclick frmTest.chkWait\nexpect frmTest.chkWait value 1\n"
                 "expect frmTest.lblLog text \"+chkWait on release\"\n"
                 "click frmTest.chkWait\nexpect frmTest.chkWait value 0\n");
    expectPasses("start\nclick frmTest.optType[2]\nexpect frmTest.optType[2] value true\n"
                 "click frmTest.optType[1]\nexpect frmTest.optType[2] value false\n"
                 "expect frmTest.lblLog text \"equipment host\"\n");
    expectPasses("start\nclick frmTest.tbrMain[smd]\nexpect frmTest.lblLog text toolSMD\n"
                 "expect frmTest.tbrMain[SMD] value 0\n");
    expectPasses("start\nclick frmTest.picPane\nexpect frmTest.lblLog text press\n");
    expectPasses("start\nclick frmTest.lvwRows.columns[1]\nexpect frmTest.lvwRows sorted true\n"
                 "expect frmTest.lvwRows[#1] text Data\n");
}

TEST(Acting, RunsMenuEntriesAndOnlyOpensSubMenus) {
    expectPasses(
        "start\nclick frmTest.mnuEdit\nexpect frmTest.lblLog text opened\n"
        "click frmTest.mnuClear\nexpect frmTest.lblLog text \"\"\n"
        "click frmTest.mnuMore\nclick frmTest.mnuInMore\nexpect frmTest.lblLog text \"more deep\"\n");
}

TEST(Acting, SelectsNodesAndRows) {
    expectPasses("start\nclick frmTest.tvwTree[#3]\nexpect frmTest.tvwTree selected 3\n"
                 "expect frmTest.lblLog text \"mouse1 up1 node:L, 2\"\n");
    expectPasses("start\nclick frmTest.tvwTree\nexpect frmTest.lblLog text \"mouse1 up1\"\n");
    expectPasses(
        "start\nclick frmTest.lvwRows[K1]\nctrlclick frmTest.lvwRows[#3]\n"
        "expect frmTest.lvwRows[#1] selected true\nexpect frmTest.lvwRows[#3] selected true\n"
        "click frmTest.lvwRows[#2]\nexpect frmTest.lvwRows[#1] selected false\n"
        "expect frmTest.lvwRows selected 2\nclick frmTest.lvwRows\nexpect frmTest.lvwRows selected 0\n");
}

TEST(Acting, DoubleClicksAfterAClick) {
    expectPasses("start\ndoubleclick frmTest.tvwTree[S1F4]\n"
                 "expect frmTest.lblLog text \"mouse1 up1 node:S1F4 double:S1F4\"\n");
    expectPasses(
        "start\ndoubleclick frmTest.lvwRows[K2]\nexpect frmTest.lblLog text \"row:Data double:Data\"\n");
}

TEST(Acting, LeavesAPopupOpenUntilTheNextAction) {
    const std::string open =
        "start\nrightclick frmTest.tvwTree[#2]\nexpect frmTest.mnuPopup visible true\n"
        "expect frmTest.lblLog text \"mouse2 up2\"\nexpect frmTest.tvwTree focused true\n";
    expectPasses(open + "dismiss\nexpect frmTest.mnuPopup visible false\n");
    expectPasses(open + "click frmTest.mnuDelete\nexpect frmTest.mnuPopup visible false\n"
                        "expect frmTest.lblLog text \"mouse2 up2 deleted\"\n");
    expectPasses(open + "click frmTest.chkWait\nexpect frmTest.mnuPopup visible false\n");
    expectPasses(open + "answer Yes\npick x\nexpect frmTest.mnuPopup visible true\n"
                        "click frmTest.cmdAsk\nclick frmTest.cmdPick\n");
    expectFails("start\ndismiss\n", "2: expected dismiss to take place, found no pop-up is open");
    expectFails("start\nclick frmTest.mnuDelete\n",
                "2: expected click to take place, found frmTest.mnuPopup is not open");
}

TEST(Acting, KeepsThePopupWhileItsCommandRuns) {
    expectPasses(
        "start\nrightclick frmTest.tvwTree[#2]\nduring frmDialog\n  expect frmTest.mnuPopup visible true\n"
        "  click frmDialog.cmdOK\n  \nend\nclick frmTest.mnuDialog\nexpect frmTest.mnuPopup visible false\n");
}

TEST(Acting, MovesTheFocus) {
    expectPasses(
        "start\nfocus frmTest.chkWait\nexpect frmTest.chkWait focused true\n"
        "click frmTest.tbrMain[SMD]\nclick frmTest.mnuClear\nexpect frmTest.chkWait focused true\n"
        "click frmTest.lvwRows.columns[1]\nclick frmTest.picPane\nexpect frmTest.chkWait focused true\n"
        "choose frmTest.cboKind Host\n"
        "expect frmTest.lblLog text \"press -chkWait +cboKind chose\"\n");
    expectPasses("start\nfocus frmTest\n");
    expectFails("start\nfocus frmTest.lblLog\n",
                "2: expected focus to take place, found frmTest.lblLog takes no focus");
}

TEST(Acting, TypesKeyByKey) {
    expectPasses("start\nfocus frmTest.chkWait\nclick frmTest.mnuClear\ntype frmTest.txtName aB\n"
                 "expect frmTest.txtName text aB\n"
                 "expect frmTest.lblLog text \"-chkWait down65 change up down66s change up\"\n");
    expectPasses("start\ntype frmTest.txtDigits 1a2\nexpect frmTest.txtDigits text 12\n"
                 "expect frmTest.txtDigits locked false\ntype frmTest.txtDigits x\n"
                 "expect frmTest.txtDigits locked true\n");
    expectFails("start\ntype frmTest.txtName \"a\\u00e9\"\n",
                "2: expected type to take place, found a US keyboard has no key for all of \"a\xC3\xA9\"");
}

TEST(Acting, ReplacesTheSelectionByTheFirstKey) {
    expectPasses(
        "start\npaste frmTest.txtName old\nfocus frmTest.chkWait\nfocus frmTest.txtName\n"
        "expect frmTest.txtName selectedtext old\ntype frmTest.txtName ne\nexpect frmTest.txtName text ne\n");
}

TEST(Acting, AClickKeepsTheSelectionThatComesWithTheFocus) {
    expectPasses("start\npaste frmTest.txtName old\nfocus frmTest.chkWait\nclick frmTest.txtName\n"
                 "expect frmTest.txtName selectedtext old\nclick frmTest.txtName\n"
                 "expect frmTest.txtName selectedtext \"\"\ntype frmTest.txtName er\n"
                 "expect frmTest.txtName text older\n");
}

TEST(Acting, PressesKeysByTheirCodes) {
    expectPasses("start\nkey frmTest.txtName 65\nkey frmTest.txtName 65 shift\nkey frmTest.txtName 97\n"
                 "key frmTest.txtName 13\nexpect frmTest.txtName text aA1\nkey frmTest.txtName 8\n"
                 "expect frmTest.txtName text aA\nkey frmTest.txtName 36\nkey frmTest.txtName 46\n"
                 "expect frmTest.txtName text A\n");
    expectPasses("start\nkey frmTest.chkWait 32\nexpect frmTest.chkWait value 1\n"
                 "key frmTest.optType[2] 32\nexpect frmTest.optType[2] value true\n"
                 "key frmTest.cmdTell 32\nexpectbox \"Told...\"\n");
    expectFails("start\nkey frmTest.txtName 256\n",
                "2: expected a virtual key code from 1 to 255, found 256");
    expectFails("start\nkey frmTest.txtName 65 ctrl\n", "2: expected \"shift\" or nothing, found ctrl");
}

TEST(Acting, PastesWithoutKeys) {
    expectPasses("start\npaste frmTest.txtName \"a\xC3\xA9\"\nexpect frmTest.lblLog text change\n"
                 "paste frmTest.txtName \"a\xC3\xA9\"\nexpect frmTest.lblLog text change\n"
                 "paste frmTest.txtName \"\"\nexpect frmTest.txtName text \"\"\n");
    expectPasses(
        "start\ntype frmTest.txtDigits 1x\npaste frmTest.txtDigits 22\nexpect frmTest.txtDigits text 1\n");
    expectPasses("start\npaste frmTest.txtNotes \"a\\r\\nb\"\nexpect frmTest.txtNotes text \"a\\r\\nb\"\n");
}

TEST(Acting, ChoosesRowsAndFolders) {
    expectPasses("start\nchoose frmTest.cboKind \"Both sides\"\nexpect frmTest.cboKind text \"Both sides\"\n"
                 "choose frmTest.cboKind #2\nexpect frmTest.cboKind text Equipment\n");
    expectPasses("start\nmkdir ${WORK}/a\nchoose frmTest.dirFolder ${WORK}/a\n");
    expectFails("start\nchoose frmTest.cboKind #4\n",
                "2: expected choose to take place, found frmTest.cboKind has no row \"#4\"");
    expectFails("start\nchoose frmTest.dirFolder /no/such\n",
                "2: expected choose to take place, found there is no folder /no/such");
}

TEST(Acting, DragsAndDrops) {
    expectPasses("start\ndrag frmTest.tvwTree[#3] frmTest.tvwTree[S1F4]\n"
                 "expect frmTest.lblLog text \"mouse1 over:S1F4 drop(L, 2)on:S1F4\"\n");
    expectPasses("start\nclick frmTest.lvwRows[#1]\nctrlclick frmTest.lvwRows[#2]\n"
                 "drag frmTest.lvwRows[#2] frmTest.tvwTree\nclick frmTest.mnuClear\n"
                 "drag frmTest.lvwRows[#3] frmTest.tvwTree\n"
                 "expect frmTest.lblLog text \"over:none drop(Event;)on:none\"\n");
    expectPasses("start\nclick frmTest.lvwRows[#1]\nctrlclick frmTest.lvwRows[#2]\nclick frmTest.mnuClear\n"
                 "drag frmTest.lvwRows[#2] frmTest.tvwTree\n"
                 "expect frmTest.lblLog text \"over:none drop(Online;Data;)on:none\"\n");
    expectPasses("start\ndrag frmTest.picPane frmTest.tvwTree[#1]\n"
                 "expect frmTest.lblLog text \"press over: drop(if)on:\"\n");
    expectPasses(
        "start\ndrop \"from outside\" frmTest.txtNotes\nexpect frmTest.txtNotes text \"from outside\"\n");
    expectPasses("start\ndrag frmTest.tvwEmpty frmTest.tvwTree\nexpect frmTest.lblLog text \"\"\n");
    expectPasses("start\npaste frmTest.txtName word\nfocus frmTest.chkWait\nfocus frmTest.txtName\n"
                 "click frmTest.mnuClear\ndrag frmTest.txtName frmTest.lvwRows[#1]\n"
                 "expect frmTest.lblLog text drop(word)on:Online\n");
}

TEST(Acting, FailsOnWhatAPersonCannotReach) {
    expectFails("start\nclick frmTest.tbrMain[TMD]\n",
                "2: expected click to take place, found frmTest.tbrMain[TMD] is disabled");
    expectFails("start\nclick frmDialog.cmdOK\n",
                "2: expected click to take place, found frmDialog is not shown");
    expectFails("start\nduring frmDialog\n  click frmTest.cmdTell\nend\nclick frmTest.cmdDialog\n",
                "3: expected click to take place, found frmTest is blocked by a modal window");
    expectFails("start\nclick frmTest\n", "2: expected a control to act on, found frmTest");
    expectFails("start\ntype frmTest.tvwTree[#1] a\n",
                "2: expected a control as a whole, found frmTest.tvwTree[#1]");
    expectFails("start\nclose frmTest.txtName\n", "2: expected a window, found frmTest.txtName");
}

TEST(Acting, KeepsTheFocusBeneathADialog) {
    expectPasses("start\nfocus frmTest.txtName\nclick frmTest.mnuClear\nduring frmDialog\n"
                 "  expect frmDialog.txtValue focused true\n  expect frmTest.cmdDialog focused true\n"
                 "  type frmDialog.txtValue 7\n  key frmDialog.txtValue 65\n  click frmDialog.cmdOK\nend\n"
                 "click frmTest.cmdDialog\nexpect frmTest.lblLog text value:7a\n"
                 "expect frmTest.cmdDialog focused true\n");
}

} // namespace
} // namespace zb
