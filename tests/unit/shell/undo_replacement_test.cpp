// Another content takes the place of the open one: one step of both windows.
#include "controls/user_hands.h"
#include "platform/text_file.h"
#include "project/project_files.h"
#include "project/project_text.h"
#include "support/document_dump.h"
#include "unit/shell/program.h"
#include "unit/shell/undo_witness.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace zb {
namespace {

namespace fs = std::filesystem;

class UndoOfAReplacement : public testing::Test {
protected:
    UndoOfAReplacement() {
        fs::create_directories(project.parent_path());
        fs::copy_file(fs::path(ZB_SOURCE_FOLDER) / "examples/etcher/Etcher.zbp", project);
        app.start(project.string());
    }

    static void replace(std::string& text, const std::string& old, const std::string& wanted) {
        const auto place = text.find(old);
        ASSERT_NE(place, std::string::npos) << old;
        text.replace(place, old.size(), wanted);
    }
    std::string dump() { return test::dumpMessages(app) + test::dumpModel(app); }
    /// One message renamed, one more, one TR message less, one sequence more.
    Project otherProject() {
        Project other = parseProject(app.work.composeWork());
        std::string messages = other.messages.text();
        replace(messages, "AreYouThere: S1 F1", "AreYouWhere: S1 F1");
        messages += "* new\r\nNewMessage: S99 F1 W H->E.\r\n";
        other.messages = ProjectMessages(messages);
        other.model->deleteAt(1);
        other.sequences.addSequence("New sequence");
        return other;
    }
    bool has(const std::string& message) { return app.frmSECSEditor.liveTree().find(message) != nullptr; }
    void undo() { EXPECT_EQ(hands.click(Target::whole(app.frmWorkbench.cmdUndo)), ""); }
    void redo() { EXPECT_EQ(hands.click(Target::whole(app.frmWorkbench.cmdRedo)), ""); }
    void deleteMessage(int index) {
        Target target = Target::whole(app.frmSECSEditor.tvwEdit);
        target.node = app.frmSECSEditor.liveTree().at(index);
        EXPECT_EQ(hands.click(target), "");
        EXPECT_EQ(hands.click(Target::whole(app.frmSECSEditor.editEntries.remove)), "");
    }
    void deleteTRMessage() {
        Tree& tree = app.frmTRModeler.tvwRcvTRMsg;
        Target target = Target::whole(tree);
        target.node = tree.nodes().firstRoot()->child();
        EXPECT_EQ(hands.click(target), "");
        EXPECT_EQ(hands.key(tree, {kKeyDelete, 0}), "");
    }

    test::TemporaryFolder folder;
    fs::path project = folder / "Etcher/Etcher.zbp";
    SystemFileLayer files;
    test::Program program{files};
    Application& app = program.application;
    UserHands hands{app.desktop};
};

TEST_F(UndoOfAReplacement, TakesBackMessagesModelAndSequences) {
    const std::string before = dump();
    const std::string work = app.work.composeWork();
    const Project wanted = otherProject();
    app.content.replace(otherProject(), "Take over");
    EXPECT_EQ(app.work.composeWork(), composeProject(wanted));
    EXPECT_TRUE(has("AreYouWhere"));
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher*");
    const std::string after = dump();
    EXPECT_EQ(app.frmWorkbench.cmdUndo.toolTip(), "Undo: Take over");
    undo();
    test::expectEqual(dump(), before, "then");
    EXPECT_EQ(app.work.composeWork(), work);
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher");
    redo();
    test::expectEqual(dump(), after, "then");
    EXPECT_EQ(app.work.composeWork(), composeProject(wanted));
}

TEST_F(UndoOfAReplacement, ShowsWhatAFreshOpenWouldShow) {
    app.content.replace(otherProject(), "Take over");
    const fs::path copy = folder / "Copy/Copy.zbp";
    fs::create_directories(copy.parent_path());
    test::writeFile(copy, encodeUtf16(app.work.composeWork()));
    test::Program fresh(files);
    fresh.application.start(copy.string());
    const auto texts = [](const NodeTree& tree) {
        std::string all;
        for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next())
            for (const Node* shown = node; shown != nullptr; shown = shown->child())
                all += shown->text() + "|" + std::string(shown->key()) + "|" + shown->image() + "\n";
        return all;
    };
    Application& other = fresh.application;
    EXPECT_EQ(texts(app.frmSECSEditor.liveTree()), texts(other.frmSECSEditor.liveTree()));
    EXPECT_EQ(app.frmSECSEditor.cboSECSMessage.entries(), other.frmSECSEditor.cboSECSMessage.entries());
    EXPECT_EQ(texts(app.frmTRModeler.tvwRcvTRMsg.nodes()), texts(other.frmTRModeler.tvwRcvTRMsg.nodes()));
    EXPECT_EQ(texts(app.frmTRModeler.tvwSndTRMsg.nodes()), texts(other.frmTRModeler.tvwSndTRMsg.nodes()));
}

TEST_F(UndoOfAReplacement, WorksInTheModelerAsInTheEditor) {
    const std::string before = dump();
    app.showModeler();
    const std::string inModeler = dump();
    app.content.replace(otherProject(), "Take over");
    EXPECT_EQ(app.desktop.frontDocument(app.frmMain), &app.frmTRModeler);
    EXPECT_NE(app.SECSMessageStore->getByName("NewMessage"), nullptr)
        << "the dialogs of the modeler offer the new messages";
    EXPECT_EQ(app.frmWorkbench.cmdUndo.toolTip(), "Undo: Take over");
    undo();
    test::expectEqual(dump(), inModeler, "then");
    EXPECT_EQ(app.SECSMessageStore->getByName("NewMessage"), nullptr);
    EXPECT_FALSE(app.editorHistory.steps.undoName() == "Take over");
    EXPECT_NE(before, "");
}

TEST_F(UndoOfAReplacement, TakesLaterStepsOfTheOtherWindowAlong) {
    const std::string before = dump();
    app.content.replace(otherProject(), "Take over");
    const std::string after = app.work.composeWork();
    app.showModeler();
    deleteTRMessage();
    deleteTRMessage();
    app.showEditor();
    undo();
    test::expectEqual(dump(), before, "after the undo");
    EXPECT_EQ(app.frmWorkbench.notices.lblNotice.text(),
              "Undone: Take over, and with it 2 steps of the other window");
    EXPECT_FALSE(app.modelerHistory.steps.canUndo());
    redo();
    EXPECT_EQ(app.work.composeWork(), after);
    // The later steps are still there for the modeler.
    EXPECT_TRUE(app.modelerHistory.steps.canRedo());
    app.modelerHistory.steps.redo();
    app.modelerHistory.steps.redo();
    EXPECT_FALSE(app.modelerHistory.steps.canRedo());
    app.modelerHistory.steps.undo();
    app.modelerHistory.steps.undo();
    app.modelerHistory.steps.undo();
    test::expectEqual(dump(), before, "the modeler takes the messages back, too");
}

TEST_F(UndoOfAReplacement, IsForgottenInBothWindowsByAnotherStep) {
    app.content.replace(otherProject(), "Take over");
    undo();
    ASSERT_TRUE(app.modelerHistory.steps.canRedo());
    deleteMessage(3);
    EXPECT_FALSE(app.modelerHistory.steps.canRedo());
    EXPECT_EQ(app.editorHistory.steps.undoName().substr(0, 6), "Delete");
}

TEST_F(UndoOfAReplacement, IsForgottenInBothWindowsWithTheOldestSteps) {
    app.content.replace(otherProject(), "Take over");
    NodeTree& tree = app.frmSECSEditor.liveTree();
    for (std::size_t step = 0; step < UndoHistory::kMostSteps; ++step) {
        tree.at(2)->setText(std::to_string(step));
        app.desktop.steps().closeStep();
    }
    EXPECT_FALSE(app.modelerHistory.steps.canUndo());
}

TEST_F(UndoOfAReplacement, ThatChangesNothingIsNoStep) {
    app.content.replace(app.content.content(), "Take over");
    EXPECT_FALSE(app.editorHistory.steps.canUndo());
    EXPECT_FALSE(app.modelerHistory.steps.canUndo());
    EXPECT_EQ(app.frmMain.titleNote(), "Etcher");
}

TEST_F(UndoOfAReplacement, OfOneDocumentIsUndoneInTheOtherWindow) {
    Project other = app.content.content();
    std::string messages = other.messages.text();
    replace(messages, "AreYouThere: S1 F1", "AreYouWhere: S1 F1");
    other.messages = ProjectMessages(messages);
    app.content.replace(std::move(other), "Take over");
    app.showModeler();
    undo();
    EXPECT_TRUE(has("AreYouThere"));
    EXPECT_FALSE(app.editorHistory.steps.canUndo());
}

TEST_F(UndoOfAReplacement, KeepsWhatDiffersAlone) {
    NodeTree& tree = app.frmSECSEditor.liveTree();
    const Node* stays = tree.find("TraceInitialize");
    const Node* selected = tree.at(30);
    tree.select(tree.at(30));
    app.content.replace(otherProject(), "Take over");
    EXPECT_EQ(tree.find("TraceInitialize"), stays);
    EXPECT_EQ(tree.selected(), selected);
    EXPECT_LT(app.editorHistory.steps.bytes(), 20'000U);
    EXPECT_LT(app.modelerHistory.steps.bytes(), 60'000U);
}

TEST_F(UndoOfAReplacement, TakesTheSideAndForeignSectionsBack) {
    Project other = app.content.content();
    const std::string text = composeProject(other);
    std::string changed = text;
    replace(changed, "###[TRANSACTION MODEL]", "## [OF ANOTHER PROGRAM]\r\nkept\r\n###[TRANSACTION MODEL]");
    replace(changed, "ProjectType=2", "ProjectType=1");
    changed = composeProject(parseProject(changed));
    ASSERT_NE(changed.find("\r\nkept\r\n"), std::string::npos);
    app.content.replace(parseProject(changed), "Take over");
    EXPECT_EQ(app.ProjectType, 1);
    EXPECT_EQ(app.TRModelStore->ProjectType(), 1);
    EXPECT_EQ(app.work.composeWork(), changed);
    undo();
    EXPECT_EQ(app.ProjectType, 2);
    EXPECT_EQ(app.work.composeWork(), text);
    redo();
    EXPECT_EQ(app.work.composeWork(), changed);
}

} // namespace
} // namespace zb
