#include "controls/bars.h"
#include "controls/desktop.h"
#include "desktop/accessibility/accessible_notice.h"
#include "desktop/models/node_tree_view.h"
#include "desktop/qt_text.h"
#include "screen/support/program_on_screen.h"
#include "workbench/frm_workbench.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QCheckBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QToolButton>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace zb::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ScreenReader : ::testing::Test {
    ScreenReader() {
        program.application.start("");
        program.application.showEditor();
        program.settle();
    }

    frmSECSEditor& editor() { return program.application.frmSECSEditor; }

    Node& add(Node* parent, const std::string& text) {
        NodeTree& tree = editor().tvwEdit.nodes();
        Node& node = parent == nullptr ? tree.add(nullptr, Relation::Last, text)
                                       : tree.add(parent, Relation::Child, text);
        node.setExpanded(true);
        return node;
    }

    QAccessibleInterface& tree() {
        return *QAccessible::queryAccessibleInterface(&program.widget<NodeTreeView>(editor(), "tvwEdit"));
    }

    /// Everything below that takes the keyboard but has no name.
    void findNameless(QAccessibleInterface& at, std::vector<std::string>& nameless) {
        for (int i = 0; i < at.childCount(); ++i) {
            QAccessibleInterface* child = at.child(i);
            ASSERT_NE(child, nullptr) << fromQt(at.text(QAccessible::Name)) << " child " << i;
            if (child->object() != nullptr && child->state().focusable && !child->state().invisible &&
                child->text(QAccessible::Name).isEmpty())
                nameless.push_back(fromQt(child->object()->objectName()));
            ++visited;
            findNameless(*child, nameless);
        }
    }

    ProgramOnScreen program{"/"};
    int visited = 0;
};

TEST_F(ScreenReader, EveryWindowNamesWhatTakesTheKeyboard) {
    add(&add(nullptr, "message"), "item");
    program.application.showModeler();
    program.application.showEditor();
    std::vector<std::string> nameless;
    for (Window* window : program.application.desktop.windows()) {
        window->show();
        program.settle();
        findNameless(*QAccessible::queryAccessibleInterface(&program.form(*window)), nameless);
    }
    EXPECT_GT(visited, 300);
    EXPECT_THAT(nameless, IsEmpty());
}

TEST_F(ScreenReader, ATreeHasItsNodesWithLevelAndPosition) {
    Node& first = add(nullptr, "first");
    add(&first, "child one");
    Node& two = add(&first, "child two");
    add(nullptr, "second");
    EXPECT_EQ(tree().role(), QAccessible::Tree);
    ASSERT_EQ(tree().childCount(), 2);
    QAccessibleInterface* root = tree().child(0);
    EXPECT_EQ(root->role(), QAccessible::TreeItem);
    EXPECT_EQ(root->text(QAccessible::Name), "first");
    ASSERT_EQ(root->childCount(), 2);
    QAccessibleInterface* below = root->child(1);
    EXPECT_EQ(below->text(QAccessible::Name), "child two");
    EXPECT_EQ(root->indexOfChild(below), 1);
    EXPECT_EQ(below->parent(), root);
    EXPECT_EQ(root->parent(), &tree());
    EXPECT_EQ(tree().indexOfChild(tree().child(1)), 1);
    EXPECT_EQ(tree().childAt(below->rect().center().x(), below->rect().center().y()), below);
    EXPECT_EQ(two.text(), "child two");
}

TEST_F(ScreenReader, ANodeSaysWhetherItIsSelectedAndOpen) {
    Node& first = add(nullptr, "first");
    Node& child = add(&first, "child");
    editor().tvwEdit.nodes().select(&child);
    QAccessibleInterface* root = tree().child(0);
    EXPECT_TRUE(root->state().expandable);
    EXPECT_TRUE(root->state().expanded);
    EXPECT_FALSE(root->state().selected);
    EXPECT_TRUE(root->child(0)->state().selected);
    EXPECT_FALSE(root->child(0)->state().expandable);
    EXPECT_EQ(tree().focusChild(), root->child(0));
    editor().tvwEdit.nodes().select(&first);
    first.setExpanded(false);
    EXPECT_TRUE(root->state().collapsed);
    EXPECT_TRUE(root->child(0)->state().invisible);
}

TEST_F(ScreenReader, ATreeForgetsTheNodesThatLeaveIt) {
    Node& first = add(nullptr, "first");
    const QAccessibleInterface* before = tree().child(0);
    EXPECT_EQ(before->text(QAccessible::Name), "first");
    editor().tvwEdit.nodes().remove(first);
    EXPECT_EQ(tree().childCount(), 0);
    add(nullptr, "second");
    ASSERT_EQ(tree().childCount(), 1);
    EXPECT_EQ(tree().child(0)->text(QAccessible::Name), "second");
}

TEST_F(ScreenReader, CaptionsAreTheNamesOfWhatHasThem) {
    int named = 0;
    for (Window* window : program.application.desktop.windows()) {
        for (QAbstractButton* button : program.form(*window).findChildren<QAbstractButton*>()) {
            if (button->text().isEmpty() || qobject_cast<QToolButton*>(button) != nullptr)
                continue;
            QString caption = button->text();
            caption.remove(QLatin1Char('&'));
            EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name), caption);
            ++named;
        }
    }
    EXPECT_GT(named, 20);
}

TEST_F(ScreenReader, ACommandOfTheToolBarIsAButtonAndNoCheckBox) {
    std::set<std::string> checkBoxes;
    for (QToolButton* button : program.screen.mainWindow()->findChildren<QToolButton*>()) {
        if (button->objectName().startsWith(QLatin1String("tbrMain_")) &&
            QAccessible::queryAccessibleInterface(button)->role() == QAccessible::CheckBox)
            checkBoxes.insert(fromQt(button->objectName()));
    }
    EXPECT_THAT(checkBoxes, ElementsAre("tbrMain_Editor"));
}

/// Hears what the window reports of notices, for as long as it exists. Without a screen reader Qt passes no
/// event on, so that the events are taken where Qt would get them.
class Listener {
public:
    Listener(NoticeBar& notices, QLabel& label) : notices_(notices), windowsOwn_(notices.onNews) {
        notices_.onNews = [this, &label] {
            windowsOwn_();
            AccessibleNotice::report(label, [this](QAccessibleEvent* event) { hear(*event); });
        };
    }
    ~Listener() { notices_.onNews = windowsOwn_; }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Whether the window reports news.
    bool isConnected() const { return windowsOwn_ != nullptr; }
    /// The names of the notifications that were shown.
    const std::vector<std::string>& heard() const { return heard_; }

private:
    void hear(QAccessibleEvent& event) {
        QAccessibleInterface* source = event.accessibleInterface();
        if (event.type() == QAccessible::ObjectShow && source != nullptr &&
            source->role() == QAccessible::Notification)
            heard_.push_back(fromQt(source->text(QAccessible::Name)));
    }

    NoticeBar& notices_;
    std::function<void()> windowsOwn_;
    std::vector<std::string> heard_;
};

TEST_F(ScreenReader, HearsEachNewNoticeOnce) {
    frmWorkbench& workbench = program.application.frmWorkbench;
    const Listener listener(workbench.notices, program.widget<QLabel>(workbench, "lblNotice"));
    ASSERT_TRUE(listener.isConnected());
    Desktop& desktop = program.application.desktop;
    desktop.post({"Saved Etcher.zbp", {}, "save"});
    desktop.post({"Etcher.zbp was changed by another program", {{"Reload", [] {}}}, "disk"});
    EXPECT_THAT(listener.heard(),
                ElementsAre("Saved Etcher.zbp", "Etcher.zbp was changed by another program"));
    // The earlier notice comes back when the later one goes; it is no news.
    desktop.withdraw("disk");
    EXPECT_EQ(listener.heard().size(), 2U);
}

struct TabOrder : ScreenReader {
    /// The names of the widgets at which Tab stops, from one to another.
    std::vector<std::string> stops(const Window& window, const char* from, const char* to) {
        std::vector<std::string> names;
        const QWidget* last = &program.widget<QWidget>(window, to);
        QWidget* at = &program.widget<QWidget>(window, from);
        for (int step = 0; step < 500; ++step, at = at->nextInFocusChain()) {
            if ((at->focusPolicy() & Qt::TabFocus) && at->isEnabled())
                names.push_back(fromQt(at->objectName()));
            if (at == last)
                break;
        }
        return names;
    }
};

TEST_F(TabOrder, TheTypeButtonsAreOneStopBetweenTheirNeighbours) {
    for (ToolbarButton& button : editor().tbritemType.buttons())
        button.setEnabled(true);
    ToolbarButton& pressed = editor().tbritemType.buttons()[1];
    pressed.setValue(1);
    for (const char* name : {"chkIsItemKey", "txtInit"})
        program.widget<QWidget>(editor(), name).setEnabled(true);
    EXPECT_THAT(stops(editor(), "chkIsItemKey", "txtInit"),
                ElementsAre("chkIsItemKey", "tbritemType_" + pressed.key(), "txtInit"));
}

TEST_F(TabOrder, ArrowsMoveWithinTheTypeButtons) {
    for (ToolbarButton& button : editor().tbritemType.buttons())
        button.setEnabled(true);
    const auto button = [&](std::size_t index) -> QToolButton& {
        const std::string name = "tbritemType_" + editor().tbritemType.buttons()[index].key();
        return program.widget<QToolButton>(editor(), name.c_str());
    };
    const auto press = [&](QWidget& widget, int key) {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &down);
    };
    program.screen.mainWindow()->activateWindow();
    program.settle();
    button(0).setFocus();
    press(button(0), Qt::Key_Right);
    EXPECT_TRUE(button(1).hasFocus());
    press(button(1), Qt::Key_Down);
    EXPECT_TRUE(button(9).hasFocus());
    press(button(9), Qt::Key_Left);
    press(button(8), Qt::Key_Up);
    EXPECT_TRUE(button(0).hasFocus());
    press(button(0), Qt::Key_Left);
    EXPECT_TRUE(button(0).hasFocus());
}

TEST_F(TabOrder, OperatorsAreStopsWhereTheyAreSeen) {
    for (const Window* window : {static_cast<const Window*>(&program.application.frmTRMessage),
                                 static_cast<const Window*>(&program.application.frmTRItem)}) {
        for (const char* name : {"cmbDataItem", "txtDataItemValue", "txtOperand1", "txtOperand2"})
            program.widget<QWidget>(*window, name).setEnabled(true);
        const auto first = stops(*window, "cmbDataItem", "txtDataItemValue");
        ASSERT_EQ(first.size(), 3U) << window->name();
        EXPECT_EQ(first[1].find("tlbOperator1_"), 0U) << first[1];
        const auto second = stops(*window, "txtOperand1", "txtOperand2");
        ASSERT_EQ(second.size(), 3U) << window->name();
        EXPECT_EQ(second[1].find("tlbOperator2_"), 0U) << second[1];
    }
}

} // namespace
} // namespace zb::test
