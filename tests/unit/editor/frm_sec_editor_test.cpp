#include "unit/editor/editor_desk.h"

#include <cstdlib>
#include <ostream>

namespace zb {
namespace {

class EditorWindow : public EditorDesk {};

TEST_F(EditorWindow, NewEmptiesTheEditorAndKeepsTheClipboard) {
    Node& message = addMessage("A: S1 F1 H->E");
    clickNode(&message);
    click(window.editEntries.copy);
    const SECSMessageStore* store = state.SECSMessageStore.get();
    window.newEditorProject();
    EXPECT_TRUE(tree().empty());
    EXPECT_TRUE(window.cboSECSMessage.entries().empty());
    EXPECT_EQ(window.txtMsgName.text(), "");
    EXPECT_NE(state.SECSMessageStore.get(), store);
    EXPECT_TRUE(state.SECSMessageStore->getMessages().empty());
    EXPECT_EQ(clipboardOutline(), (Lines{"", "", "A: S1 F1 H->E"}));
}

TEST_F(EditorWindow, AFreshTreeTakesTurnsWithTheOther) {
    EXPECT_EQ(window.currentTreeIndex, 1);
    window.newEditorProject();
    EXPECT_EQ(window.currentTreeIndex, 2);
    window.newEditorProject();
    EXPECT_EQ(window.currentTreeIndex, 1);
    window.currentTreeIndex = 7;
    window.newEditorProject();
    EXPECT_EQ(window.currentTreeIndex, 1);
}

TEST_F(EditorWindow, AllNodesHaveTheOrdinaryColour) {
    Node& message = addMessage("A: S1 F1 H->E");
    message.setForeColor(kErrorForeColor);
    window.TreeView_ForeColor();
    EXPECT_EQ(message.foreColor(), kEditorForeColor);
}

TEST_F(EditorWindow, ExpandTurnsAllNodes) {
    Node& message = addMessage("A: S1 F1 H->E", {"L 1", "  U2 1 x 0"});
    EXPECT_TRUE(window.mnuExpand.checked());
    click(window.mnuExpand);
    EXPECT_FALSE(window.mnuExpand.checked());
    EXPECT_FALSE(message.expanded());
    EXPECT_FALSE(message.child()->expanded());
    click(window.mnuExpand);
    EXPECT_TRUE(window.mnuExpand.checked());
    EXPECT_TRUE(message.previous()->expanded());
    EXPECT_TRUE(message.child()->child()->expanded());
}

TEST_F(EditorWindow, ExpandOfAnEmptyTreeOnlyTurnsItsCheck) {
    click(window.mnuExpand);
    EXPECT_FALSE(window.mnuExpand.checked());
    expectNoBox();
}

TEST_F(EditorWindow, PrintDoesNothing) {
    EXPECT_EQ(window.printEditorProject(), "");
    click(window.projectMenu.mnuPrint);
    EXPECT_TRUE(commands.calls.empty());
}

TEST_F(EditorWindow, FindAsksForTheFindWindow) {
    int asked = 0;
    window.onFind = [&asked] { ++asked; };
    click(window.mnuFind);
    EXPECT_EQ(asked, 1);
}

class ProjectFile : public EditorDesk {
public:
    void open(const std::string& sectionText) {
        window.openEditorProject(ProjectMessages(sectionText).tree());
    }
};

TEST_F(ProjectFile, OpenFillsTreeAndCombo) {
    addMessage("Old: S9 F9 H->E");
    open("* first\r\nA: S1 F1 W H->E.\r\nB: S1 F2 H<-E\r\n    L 1\r\n        U2 1 x 0.\r\n");
    EXPECT_EQ(treeOutline(),
              (Lines{"", "first", "A: S1 F1 W H->E", "", "", "B: S1 F2 H<-E", "  L 1", "    U2 1 x 0"}));
    EXPECT_EQ(window.cboSECSMessage.entries(), (Lines{"A", "B"}));
    EXPECT_EQ(window.cboSECSMessage.text(), "A");
    EXPECT_EQ(tree().selected(), tree().find("A"));
    EXPECT_EQ(window.txtMsgName.text(), ""); // the first selection is not a click
    EXPECT_EQ(tree().find("B")->child()->foreColor(), kEditorForeColor);
}

TEST_F(ProjectFile, OpenOfOneMessageSelectsNothing) {
    open("A: S1 F1 W H->E.\r\n");
    EXPECT_EQ(tree().selected(), nullptr);
    EXPECT_EQ(window.cboSECSMessage.text(), "");
}

TEST_F(ProjectFile, OpenOfAProjectWithoutMessagesLeavesTheEditorEmpty) {
    addMessage("Old: S9 F9 H->E");
    window.openEditorProject({});
    EXPECT_TRUE(tree().empty());
    EXPECT_TRUE(window.cboSECSMessage.entries().empty());
}

TEST_F(ProjectFile, TheSaveWalkFillsTheStoreAndHidesTheItemPane) {
    addMessage("A: S1 F1 W H->E", {"L 1", "  U2 1 x 0"}, "first");
    EXPECT_EQ(window.buildMessageText(WalkMode::SaveProject), "");
    EXPECT_EQ(state.SECSMessageStore->allTexts(),
              "* first\r\nA: S1 F1 W H->E\r\n    L 1\r\n        U2 1 x 0.\r\n");
    EXPECT_FALSE(window.picItem.visible());
    EXPECT_NE(state.SECSMessageStore->getByName("a"), nullptr);
}

TEST_F(ProjectFile, TheWayToTheModelerStopsAtAFault) {
    Node& message = addMessage("A: S1 F1 W H->E", {"L 5V", "  U2 1 x 0"});
    EXPECT_EQ(window.buildMessageText(WalkMode::Modeler), "occur an Error");
    expectBox("Insert item name");
    EXPECT_EQ(tree().selected(), message.child());
    EXPECT_EQ(message.child()->backColor(), kErrorBackColor);
    clickNode(message.child());
    EXPECT_EQ(message.child()->backColor(), std::nullopt);
    EXPECT_TRUE(window.picItem.visible());
}

TEST_F(ProjectFile, AFaultOfAHeadIsShownAsAPlainMessage) {
    Node& message = addMessage("A: S1 F300 W H->E");
    EXPECT_EQ(window.buildMessageText(WalkMode::BuildSmd),
              "You must insert a positive number less than 255 in the function");
    ASSERT_EQ(screen.boxes.size(), 1U);
    EXPECT_EQ(screen.boxes[0].text, "You must insert a positive number less than 255 in the function");
    EXPECT_EQ(screen.boxes[0].icon, BoxIcon::None);
    EXPECT_EQ(tree().selected(), &message);
    EXPECT_EQ(message.backColor(), kErrorBackColor);
}

TEST_F(ProjectFile, AFaultOfAnItemIsShownAsAnError) {
    Node& message = addMessage("A: S1 F1 W H->E", {"U1 1 -5"});
    EXPECT_EQ(window.buildMessageText(WalkMode::Modeler), "occur an Error");
    ASSERT_EQ(screen.boxes.size(), 1U);
    EXPECT_EQ(screen.boxes[0].text, "Insert unsigned integer for initial value.");
    EXPECT_EQ(screen.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(tree().selected(), message.child());
}

struct MenuRow {
    std::string name;
    std::string caption;
    std::optional<ProjectCommand> command; ///< nothing for an entry that runs no shared command
    Pointer pointer = Pointer::Default;
};

std::ostream& operator<<(std::ostream& out, const MenuRow& row) {
    return out << row.name;
}

class Menu : public EditorDesk, public testing::WithParamInterface<MenuRow> {};

TEST_P(Menu, HasItsCaptionAndCommand) {
    Control* control = window.find(GetParam().name);
    ASSERT_NE(control, nullptr);
    ASSERT_EQ(control->kind(), Control::Kind::MenuEntry);
    EXPECT_EQ(control->caption(), GetParam().caption);
    control->setEnabled(true);
    click(*control);
    std::vector<RecordingCommands::Call> calls;
    if (GetParam().command)
        calls.push_back({*GetParam().command, GetParam().pointer});
    EXPECT_EQ(commands.calls, calls);
    EXPECT_EQ(window.pointer(), Pointer::Default);
}

constexpr Pointer kHourglass = Pointer::Hourglass;

INSTANTIATE_TEST_SUITE_P(
    Table, Menu,
    testing::Values(
        MenuRow{"mnuProject", "Project(&P)", std::nullopt},
        MenuRow{"mnuNew", "New(&N)", ProjectCommand::New, kHourglass},
        MenuRow{"mnuOpen", "Open(&O)", ProjectCommand::Open, kHourglass},
        MenuRow{"mnuSave", "Save(&S)", ProjectCommand::Save, kHourglass},
        MenuRow{"mnuSaveAs", "SaveAs(&E)", ProjectCommand::SaveAs, kHourglass},
        MenuRow{"mnuPrint", "Print(&P)", std::nullopt}, MenuRow{"mnuExit", "Exit(&X)", ProjectCommand::Exit},
        MenuRow{"mnuFind", "Find(&F)", std::nullopt}, MenuRow{"mnuExpand", "Expand(&N)", std::nullopt},
        MenuRow{"mnuSECSMessageLibrary", "SECS Message Library(&M)", std::nullopt},
        MenuRow{"mnuItem", "&Insert Item", std::nullopt},
        MenuRow{"mnuChild", "&Add Child Item", std::nullopt},
        MenuRow{"mnuBuildSMD", "SECS Message Definitions(&S)", ProjectCommand::BuildSmd, kHourglass},
        MenuRow{"mnuTMD", "Transaction Modeling Definitions(&T)", std::nullopt},
        MenuRow{"mnuBuildZeltoPlugIn", "ZeltoDriver Interface PlugIn(&P)", ProjectCommand::BuildPlugIn,
                kHourglass},
        MenuRow{"mnuOption", "Option(&O)", ProjectCommand::Option, kHourglass},
        MenuRow{"mnuEditor", "SECSEditor(&E)", std::nullopt},
        MenuRow{"mnuModeler", "TRModeler(&M)", ProjectCommand::Modeler, kHourglass},
        MenuRow{"mnuAbout", "About(&A)", ProjectCommand::About}));

TEST_F(EditorWindow, TreeWidthBelow500GivesWayToTheOldOne) {
    const int before = window.treeWidth();
    paste(window.txtTreeWidth, "499");
    click(window.txtStream);
    EXPECT_EQ(window.treeWidth(), before);
    EXPECT_EQ(window.txtTreeWidth.text(), std::to_string(before));
    for (const char* bad : {"", "x", "1e9", "-600"}) {
        paste(window.txtTreeWidth, bad);
        key(window.txtTreeWidth, kKeyEnter);
        EXPECT_EQ(window.treeWidth(), before) << bad;
        EXPECT_EQ(window.txtTreeWidth.text(), std::to_string(before)) << bad;
    }
}

TEST_F(EditorWindow, TreeWidthIsTakenAtEnterAndWhenTheFieldIsLeft) {
    paste(window.txtTreeWidth, "");
    type(window.txtTreeWidth, "500");
    EXPECT_NE(window.treeWidth(), 500);
    key(window.txtTreeWidth, kKeyEnter);
    EXPECT_EQ(window.treeWidth(), 500);
    paste(window.txtTreeWidth, "3000");
    click(window.txtStream);
    EXPECT_EQ(window.treeWidth(), 3000);
}

TEST_F(EditorWindow, DraggingTheGapShowsItsWidth) {
    window.placeTreeColumn({.left = 0, .top = 0, .height = 5000, .gap = 60});
    const int edge = window.treeWidth();
    window.mouseMove(edge + 30, 100, false);
    EXPECT_EQ(window.pointer(), Pointer::Sizing);
    window.leftButtonDown(edge + 30, 100);
    window.mouseMove(edge + 130, 100, true);
    window.buttonUp();
    EXPECT_EQ(window.txtTreeWidth.text(), std::to_string(edge + 100));
    window.mouseMove(10, 100, false);
    EXPECT_EQ(window.pointer(), Pointer::Default);
}

TEST_F(EditorWindow, MovingTheMouseLeavesAWidthThatIsBeingTyped) {
    paste(window.txtTreeWidth, "60");
    window.mouseMove(10, 100, false);
    EXPECT_EQ(window.txtTreeWidth.text(), "60");
}

TEST_F(EditorWindow, HiddenStoresAreHidden) {
    EXPECT_FALSE(window.tvwTemp.visible());
    EXPECT_FALSE(window.List1.visible());
}

TEST_F(EditorWindow, TypeButtonsStandInTheirOrder) {
    const Lines keys{"List", "Ascii", "Binary", "Boolean", "I1", "I2", "I4",   "I8",
                     "U1",   "U2",    "U4",     "U8",      "F4", "F8", "JIS8", "Any"};
    Lines found;
    for (const ToolbarButton& button : window.tbritemType.buttons()) {
        found.push_back(button.key());
        EXPECT_EQ(button.image(), 2 * button.index() - 1) << button.key();
    }
    EXPECT_EQ(found, keys);
}

} // namespace
} // namespace zb
