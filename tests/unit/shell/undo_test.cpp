#include "controls/user_hands.h"
#include "platform/text_file.h"
#include "support/document_dump.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace zb {
namespace {

namespace fs = std::filesystem;

class Undo : public testing::Test {
protected:
    Undo() {
        fs::create_directories(project.parent_path());
        fs::copy_file(fs::path(ZB_SOURCE_FOLDER) / "examples/etcher/Etcher.zbp", project);
        app.start(project.string());
    }

    void click(Control& control) { EXPECT_EQ(hands.click(Target::whole(control)), ""); }
    void clickNode(Tree& tree, Node* node) {
        ASSERT_NE(node, nullptr);
        Target target = Target::whole(tree);
        target.node = node;
        EXPECT_EQ(hands.click(target), "");
    }
    /// An item whose text a click leaves as it is.
    Node& item() {
        NodeTree& tree = app.frmSECSEditor.liveTree();
        for (int index = 1; Node* node = tree.at(index); ++index)
            if (node->text().starts_with("U2 1 "))
                return *node;
        ADD_FAILURE() << "no such item";
        return *tree.at(1);
    }
    std::string undoName() { return app.editorHistory.steps.undoName(); }

    test::TemporaryFolder folder;
    fs::path project = folder / "Etcher/Etcher.zbp";
    SystemFileLayer files;
    test::Program program{files};
    Application& app = program.application;
    UserHands hands{app.desktop};
};

TEST_F(Undo, InTheItemPaneIsThatOfTheDocument) {
    frmSECSEditor& editor = app.frmSECSEditor;
    Node& node = item();
    clickNode(editor.tvwEdit, &node);
    app.restartHistories();
    const std::string before = node.text();
    const std::string name = editor.txtItemName.text();
    EXPECT_EQ(hands.type(editor.txtItemName, "ABC"), "");
    EXPECT_EQ(undoName(), "Type in Item Name of " + name);
    EXPECT_EQ(app.editorHistory.steps.count(), 1U);
    EXPECT_NE(node.text(), before);
    EXPECT_EQ(hands.key(editor.txtItemName, {'Z', kControlKey}), "");
    EXPECT_EQ(node.text(), before);
    EXPECT_EQ(editor.txtItemName.text(), name);
    EXPECT_TRUE(app.editorHistory.steps.canRedo()) << "the key up of Z writes nothing";
    EXPECT_EQ(hands.key(editor.txtItemName, {'Y', kControlKey}), "");
    EXPECT_EQ(editor.txtItemName.text(), "ABC");
}

TEST_F(Undo, InTheMessagePaneIsThatOfTheField) {
    frmSECSEditor& editor = app.frmSECSEditor;
    const std::string before = test::dumpMessages(app);
    clickNode(editor.tvwEdit, editor.liveTree().at(3));
    const std::string description = editor.txtDescription.text();
    EXPECT_EQ(hands.type(editor.txtDescription, "new"), "");
    EXPECT_EQ(hands.key(editor.txtDescription, {'Z', kControlKey}), "");
    EXPECT_NE(editor.txtDescription.text(), "new");
    EXPECT_EQ(test::dumpMessages(app), before);
    EXPECT_FALSE(app.editorHistory.steps.canRedo());
}

TEST_F(Undo, TheTitleSaysWhetherTheProjectIsSaved) {
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher");
    clickNode(app.frmSECSEditor.tvwEdit, app.frmSECSEditor.liveTree().at(3));
    click(app.frmSECSEditor.editEntries.duplicate);
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher*");
    click(app.frmWorkbench.cmdUndo);
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher");
    click(app.frmWorkbench.cmdRedo);
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher*");
    ASSERT_TRUE(app.projects.saveProject());
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher");
    click(app.frmWorkbench.cmdUndo);
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher*");
    click(app.frmWorkbench.cmdRedo);
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher");
}

TEST_F(Undo, TheButtonsCarryTheNamesOfTheSteps) {
    frmSECSEditor& editor = app.frmSECSEditor;
    const std::string name(editor.liveTree().at(3)->key());
    clickNode(editor.tvwEdit, editor.liveTree().at(3));
    click(editor.editEntries.remove);
    EXPECT_EQ(app.frmWorkbench.cmdUndo.toolTip(), "Undo: Delete " + name);
    click(app.frmWorkbench.cmdUndo);
    EXPECT_EQ(app.frmWorkbench.cmdRedo.toolTip(), "Redo: Delete " + name);
    EXPECT_FALSE(app.frmWorkbench.cmdUndo.enabled());
}

TEST_F(Undo, AClickOnTheButtonLeavesTheFocus) {
    frmSECSEditor& editor = app.frmSECSEditor;
    Node& node = item();
    clickNode(editor.tvwEdit, &node);
    EXPECT_EQ(hands.type(editor.txtItemName, "ABC"), "");
    click(app.frmWorkbench.cmdUndo);
    EXPECT_TRUE(editor.txtItemName.focused());
    EXPECT_EQ(app.desktop.activeWindow(), &editor);
}

TEST_F(Undo, DeletingAMessageKeepsThatMessageAlone) {
    frmSECSEditor& editor = app.frmSECSEditor;
    clickNode(editor.tvwEdit, editor.liveTree().at(3));
    click(editor.editEntries.remove);
    EXPECT_GT(editor.liveTree().count(), 300U);
    EXPECT_LT(app.editorHistory.steps.bytes(), 20'000U);
}

TEST_F(Undo, APromptThatIsCancelledKeepsTheSteps) {
    clickNode(app.frmSECSEditor.tvwEdit, app.frmSECSEditor.liveTree().at(3));
    click(app.frmSECSEditor.editEntries.duplicate);
    program.screen.answers = {Answer::Cancel, Answer::No};
    program.screen.picks = {project.string()};
    EXPECT_FALSE(app.projects.openProject());
    EXPECT_TRUE(app.editorHistory.steps.canUndo());
    EXPECT_TRUE(app.projects.openProject());
    EXPECT_FALSE(app.editorHistory.steps.canUndo());
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher");
}

TEST_F(Undo, TheModelerHasStepsOfItsOwn) {
    frmTRModeler& modeler = app.frmTRModeler;
    app.showModeler();
    const std::string before = test::dumpModel(app);
    Node* message = modeler.tvwRcvTRMsg.nodes().firstRoot()->child();
    const std::string name = message->text();
    clickNode(modeler.tvwRcvTRMsg, message);
    // The press has removed the mark that no build had set.
    const std::string pressed = test::dumpModel(app);
    EXPECT_EQ(hands.key(modeler.tvwRcvTRMsg, {kKeyDelete, 0}), "");
    EXPECT_EQ(app.frmWorkbench.cmdUndo.toolTip(), "Undo: Delete TR message " + name);
    EXPECT_EQ(app.TRModelStore->getTRMessage(name), nullptr);
    EXPECT_EQ(hands.key(modeler.tvwSndTRMsg, {'Z', kControlKey}), "");
    EXPECT_EQ(test::dumpModel(app), pressed);
    EXPECT_NE(before, "");
    EXPECT_EQ(modeler.tvwRcvTRMsg.nodes().selected(), message);
    EXPECT_EQ(modeler.current().message, name);
    EXPECT_FALSE(app.editorHistory.steps.canUndo());
}

TEST_F(Undo, AfterItTheMessageIsShownAsByAClick) {
    frmSECSEditor& editor = app.frmSECSEditor;
    clickNode(editor.tvwEdit, editor.liveTree().at(3));
    const std::string stream = editor.txtStream.text();
    const std::string name = editor.txtMsgName.text();
    click(editor.editEntries.remove);
    clickNode(editor.tvwEdit, &item());
    click(app.frmWorkbench.cmdUndo);
    EXPECT_EQ(editor.liveTree().selected(), editor.liveTree().at(3));
    EXPECT_EQ(editor.txtStream.text(), stream);
    EXPECT_EQ(editor.txtMsgName.text(), name);
    EXPECT_FALSE(editor.picItem.enabled());
    EXPECT_TRUE(editor.cmdMsgChange.enabled());
}

TEST_F(Undo, OfADeletedMessageShowsItWhicheverOfItsNodesWasSelected) {
    frmSECSEditor& editor = app.frmSECSEditor;
    for (const int node : {1, 2, 3}) {
        clickNode(editor.tvwEdit, editor.liveTree().at(node));
        click(editor.editEntries.remove);
        clickNode(editor.tvwEdit, editor.liveTree().at(1));
        click(app.frmWorkbench.cmdUndo);
        EXPECT_EQ(editor.liveTree().selected(), editor.liveTree().at(3)) << "clicked " << node;
    }
}

} // namespace
} // namespace zb
