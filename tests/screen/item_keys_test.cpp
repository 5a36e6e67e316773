#include "desktop/binders/item_binder.h"
#include "screen/support/program_on_screen.h"

#include <gmock/gmock.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTest>
#include <QTreeView>

#include <algorithm>

namespace zb::test {
namespace {

struct ItemKeys : ::testing::Test {
    ItemKeys() {
        program.application.start("");
        program.application.showEditor();
        program.settle();
    }

    frmSECSEditor& editor() { return program.application.frmSECSEditor; }
    QWidget& tree() { return program.widget<QWidget>(editor(), "tvwEdit"); }

    Target editorNode(std::string_view key) {
        Target target = Target::whole(editor().tvwEdit);
        target.node = editor().liveTree().find(key);
        return target;
    }

    ProgramOnScreen program{"/"};
};

TEST_F(ItemKeys, NoKeyMovesTheHighlightOfAListWithoutTheStore) {
    auto& view = program.widget<QTreeView>(editor(), "lvwSource");
    editor().lvwSource.select(editor().lvwSource.shown().front());
    program.settle();
    const QModelIndex first = view.currentIndex();
    ASSERT_TRUE(first.isValid());
    QTest::keyClick(&view, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(view.currentIndex(), first);
    QKeyEvent foreign(QEvent::KeyPress, Qt::Key_Eacute, Qt::NoModifier, QStringLiteral("\u00e9"));
    QCoreApplication::sendEvent(&view, &foreign);
    EXPECT_EQ(view.currentIndex(), first);
    EXPECT_EQ(view.selectionModel()->selectedRows().size(), 1);
}

TEST_F(ItemKeys, PasteInTheTreeDoesNotRepeatAnOldDrag) {
    ListRow& row = *editor().lvwSource.shown().front();
    Target from = Target::whole(editor().lvwSource);
    from.row = &row;
    program.screen.binding().hands.drag(from, Target::whole(editor().tvwEdit));
    const std::size_t dragged = editor().liveTree().count();
    ASSERT_GT(dragged, 0U);
    editor().List1.add("S1 F3");
    QGuiApplication::clipboard()->setText(QStringLiteral("copied elsewhere"));
    QTest::keyClick(&tree(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(editor().liveTree().count(), dragged);
}

// Nothing was copied here, and nothing is selected: the entry of the menu has nothing to do, but is enabled.
TEST_F(ItemKeys, APasteGoesIntoAnEmptyProjectFromTheTreeAndTheLibrary) {
    ASSERT_TRUE(editor().editEntries.pasteNext.enabled());
    auto& library = program.widget<QTreeView>(editor(), "lvwSource");
    QGuiApplication::clipboard()->setText(QStringLiteral("Asked: S1F3 W <L <U4 SVID 1>>."));
    for (QWidget* place : {&tree(), static_cast<QWidget*>(&library)}) {
        QTest::keyClick(place, Qt::Key_V, Qt::ControlModifier);
        EXPECT_NE(editor().liveTree().find("Asked"), nullptr) << place->objectName().toStdString();
        QTest::keyClick(place, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(editor().liveTree().empty());
    }
}

TEST_F(ItemKeys, WhatWasCopiedLastIsPasted) {
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QTest::keyClick(&tree(), key, modifiers);
        // A click on a node enables the entry of the menu that pastes it.
        program.screen.binding().hands.click(editorNode("Own"));
        program.settle();
    };
    const NodeTree& nodes = editor().liveTree();
    QGuiApplication::clipboard()->setText(QStringLiteral("Own: S1F1 W."));
    QTest::keyClick(&tree(), Qt::Key_V, Qt::ControlModifier);
    ASSERT_NE(nodes.find("Own"), nullptr);
    press(Qt::Key_C);
    ASSERT_TRUE(editor().editEntries.pasteNext.enabled());
    press(Qt::Key_V);
    EXPECT_NE(nodes.find("OwnNew1"), nullptr);
    QGuiApplication::clipboard()->setText(QStringLiteral("Foreign: S1F3 W."));
    press(Qt::Key_V);
    EXPECT_NE(nodes.find("Foreign"), nullptr);
    // Bare SML is for other programs, and what was copied for the tree stays.
    press(Qt::Key_C);
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_V);
    EXPECT_NE(nodes.find("OwnNew1New1"), nullptr);
    EXPECT_EQ(nodes.find("S1F1"), nullptr);
}

TEST_F(ItemKeys, AnEmptyListAndATreeShowThatTheyHaveTheFocus) {
    program.application.showModeler();
    frmTRModeler& modeler = program.application.frmTRModeler;
    ASSERT_EQ(modeler.lvwSequence.count(), 0U);
    for (const char* name : {"lvwSequence", "tvwRcvTRMsg"}) {
        auto& view = program.widget<QWidget>(modeler, name);
        const auto parts = view.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        const auto found = std::find_if(parts.begin(), parts.end(), [](const QWidget* part) {
            return dynamic_cast<const FocusMark*>(part) != nullptr;
        });
        const QWidget* mark = found == parts.end() ? nullptr : *found;
        ASSERT_NE(mark, nullptr) << name;
        view.setFocus(Qt::TabFocusReason);
        program.settle();
        EXPECT_TRUE(mark->isVisible()) << name;
        EXPECT_EQ(mark->size(), view.size()) << name;
        program.widget<QWidget>(modeler, "tvwSndTRMsg").setFocus(Qt::TabFocusReason);
        program.settle();
        EXPECT_FALSE(mark->isVisible()) << name;
    }
}

/// The dialog of a message to be sent, with a value in reach of its tree.
struct ValueKeys : ItemKeys {
    ValueKeys() {
        program.application.showModeler();
        dialog.addSndTRMessage();
        NodeTree& nodes = dialog.tvwSelSECSMsg.nodes();
        Node& message = nodes.add(nullptr, Relation::Last, "S2F15: S2 F15 W H->E");
        nodes.add(&message, Relation::Child, "U2 1 FIRST 5");
        nodes.add(&message, Relation::Child, "U2 1 SECOND 6");
        message.setExpanded(true);
        nodes.select(&message);
        dialog.tvwSelSECSMsg.setFocus();
        program.settle();
    }

    QWidget& values() { return program.widget<QWidget>(dialog, "tvwSelSECSMsg"); }
    frmTRMessage& dialog = program.application.frmTRMessage;
};

TEST_F(ValueKeys, EnterAndF2GoFromTheNodeToItsValue) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2}) {
        QTest::keyClick(&values(), Qt::Key_Down);
        program.settle();
        EXPECT_TRUE(dialog.tvwSelSECSMsg.focused());
        EXPECT_TRUE(values().hasFocus());
        const std::string shown = dialog.txtItemValue.text();
        QTest::keyClick(&values(), key);
        program.settle();
        EXPECT_TRUE(dialog.txtItemValue.focused());
        EXPECT_EQ(dialog.txtItemValue.selectedText(), shown);
        EXPECT_NE(shown, "");
        dialog.tvwSelSECSMsg.setFocus();
        program.settle();
    }
}

} // namespace
} // namespace zb::test
