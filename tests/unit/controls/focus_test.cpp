#include "controls/bars.h"
#include "controls/desktop.h"
#include "controls/list.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/tree.h"
#include "controls/user_hands.h"
#include "controls/window.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace zb {
namespace {

class ModalScreen final : public Screen {
public:
    std::function<void(Window&)> onModal;
    Answer showBox(const Box& /*box*/) override { return Answer::OK; }
    std::string pickFile(const FileDialog& /*dialog*/) override { return {}; }
    void runModal(Window& window) override { onModal(window); }
    void bringToFront(Window& /*window*/) override {}
    void openPopup(PopupMenu& /*menu*/) override {}
};

class KeyedWindow : public Window {
public:
    explicit KeyedWindow(Desktop& desktop) : Window(desktop, "frmKeyed") {
        remove.setShortcut("Del");
        popupRemove.setShortcut("Del");
        remove.onClick = [this] { log += "remove "; };
        popupRemove.onClick = [this] { log += "popup "; };
        tree.onKeyDown = [this](KeyEvent key) { log += std::to_string(key.code) + " "; };
    }
    std::string log;
    MenuEntry edit{*this, "mnuEdit", "Edit"};
    MenuEntry remove{*this, "mnuDelete", "Delete", &edit};
    PopupMenu popup{*this, "mnuPopup"};
    MenuEntry popupRemove{*this, "mnuPopDelete", "Delete", &popup};
    Tree tree{*this, "tvwTree"};
    TextField field{*this, "txtField"};
};

class TwoFields : public Window {
public:
    TwoFields(Desktop& desktop, std::string name, std::string& log) : Window(desktop, std::move(name)) {
        for (TextField* field : {&first, &second}) {
            field->onGotFocus = [&log, field, this] {
                log += "+" + this->name() + "." + field->name() + " ";
            };
            field->onLostFocus = [&log, field, this] {
                log += "-" + this->name() + "." + field->name() + " ";
            };
        }
    }
    TextField first{*this, "first"};
    TextField second{*this, "second"};
    Tree tree{*this, "tree"};
    List list{*this, "list", nullptr, List::Selection::Many};
    Button button{*this, "button", "B"};
};

class Focus : public testing::Test {
protected:
    ModalScreen screen_;
    Desktop desktop_{screen_};
    std::string log_;
    TwoFields one_{desktop_, "one", log_};
    TwoFields two_{desktop_, "two", log_};
    UserHands hands_{desktop_};
};

TEST_F(Focus, GoesToTheFirstControlOfANewWindow) {
    one_.first.setEnabled(false);
    one_.show();
    EXPECT_EQ(log_, "+one.second ");
    EXPECT_TRUE(one_.second.focused());
}

TEST_F(Focus, GoesWhereTheWindowWantsIt) {
    one_.setFirstFocus(one_.second);
    one_.show();
    EXPECT_EQ(log_, "+one.second ");
}

TEST_F(Focus, LeavesTheOldWindowBeforeTheOtherGetsIt) {
    one_.show();
    two_.show();
    EXPECT_EQ(hands_.focus(one_.second), "");
    EXPECT_EQ(log_, "+one.first -one.first +two.first -two.first +one.first -one.first +one.second ");
}

TEST_F(Focus, GoesBackWhenAWindowHides) {
    one_.show();
    two_.show();
    log_.clear();
    two_.hide();
    EXPECT_EQ(log_, "-two.first +one.first ");
}

TEST_F(Focus, StaysBeneathAModalDialog) {
    one_.show();
    log_.clear();
    screen_.onModal = [&](Window& window) {
        EXPECT_TRUE(one_.first.focused());
        EXPECT_TRUE(two_.first.focused());
        EXPECT_FALSE(desktop_.acceptsInput(one_));
        window.hide();
    };
    two_.showModal();
    EXPECT_EQ(log_, "+two.first -two.first ");
    EXPECT_TRUE(one_.first.focused());
    EXPECT_TRUE(desktop_.acceptsInput(one_));
}

TEST_F(Focus, PassesToTheNextControlWhenItsOwnIsHidden) {
    one_.show();
    one_.first.setVisible(false);
    EXPECT_TRUE(one_.second.focused());
}

TEST_F(Focus, KeysGoToTheFieldThatIsTypedInto) {
    one_.show();
    one_.first.onKeyDown = [this](KeyEvent /*key*/) { one_.second.setFocus(); };
    EXPECT_EQ(hands_.type(one_.first, "abc"), "");
    EXPECT_EQ(one_.first.text(), "abc");
    EXPECT_TRUE(one_.second.focused());
}

TEST_F(Focus, ANodeThatGoesWithTheFocusIsNotClicked) {
    one_.show();
    Node& node = one_.tree.nodes().add(nullptr, Relation::Last, "gone");
    one_.first.onLostFocus = [this] { one_.tree.nodes().clear(); };
    Target target = Target::whole(one_.tree);
    target.node = &node;
    EXPECT_EQ(hands_.click(target), "one.tree has lost the target meanwhile");
}

TEST_F(Focus, ARowThatGoesWithThePressIsNotDroppedOn) {
    one_.show();
    one_.tree.nodes().add(nullptr, Relation::Last, "from");
    ListRow& row = one_.list.add("to");
    one_.tree.onMouseDown = [this](int /*button*/, Node* /*node*/) { one_.list.clear(); };
    one_.tree.onDragStart = [](Node& node) { return std::optional(DragData{node.text(), nullptr}); };
    Target from = Target::whole(one_.tree);
    from.node = one_.tree.nodes().firstRoot();
    Target to = Target::whole(one_.list);
    to.row = &row;
    EXPECT_EQ(hands_.drag(from, to), "one.list has lost the target meanwhile");
}

TEST_F(Focus, AControlThatGoesIsForgotten) {
    auto extra = std::make_unique<Button>(one_, "extra", "Extra");
    one_.show();
    extra->setFocus();
    extra.reset();
    EXPECT_EQ(one_.find("extra"), nullptr);
    EXPECT_EQ(one_.focusControl(), nullptr);
    EXPECT_EQ(one_.controls().size(), 5U);
}

TEST_F(Focus, EntriesOfADisabledMenuCannotBeReached) {
    MenuEntry menu(one_, "mnuTop", "Top");
    MenuEntry entry(one_, "mnuEntry", "Entry", &menu);
    one_.show();
    EXPECT_EQ(hands_.click(Target::whole(entry)), "");
    menu.setEnabled(false);
    EXPECT_EQ(hands_.click(Target::whole(entry)), "one.mnuTop is disabled");
}

TEST_F(Focus, AnActionActivatesItsWindowBeforeItAsksWhatIsEnabled) {
    MenuEntry menu(one_, "mnuTop", "Top");
    MenuEntry entry(one_, "mnuEntry", "Entry", &menu);
    entry.setEnabled(false);
    entry.onClick = [this] { log_ += "run "; };
    one_.tree.onGotFocus = [&] { entry.setEnabled(true); };
    one_.tree.onLostFocus = [&] { entry.setEnabled(false); };
    one_.show();
    hands_.focus(one_.tree);
    two_.show();
    ASSERT_FALSE(entry.enabled());
    log_.clear();
    EXPECT_EQ(hands_.click(Target::whole(entry)), "");
    EXPECT_EQ(log_, "-two.first run ");
}

TEST_F(Focus, ThePressInTheToolBarOfAFrameLeavesFocusAndSelection) {
    Window frame(desktop_, "frmFrame");
    Toolbar bar(frame, "tbrBar");
    bar.addButton("Save");
    int pressed = 0;
    bar.onButtonClick = [&](ToolbarButton&) { ++pressed; };
    one_.setFrame(frame);
    frame.show();
    one_.show();
    one_.first.setText("abc");
    one_.first.select(1, 2);
    log_.clear();
    Target button = Target::whole(bar);
    button.button = &bar.button("Save");
    EXPECT_EQ(hands_.click(button), "");
    EXPECT_EQ(pressed, 1);
    EXPECT_EQ(log_, "");
    EXPECT_TRUE(one_.first.focused());
    EXPECT_EQ(one_.first.selectedText(), "b");
    // From another window it leads back to the document.
    two_.show();
    EXPECT_EQ(hands_.click(button), "");
    EXPECT_TRUE(one_.first.focused());
}

TEST_F(Focus, APopupStaysOpenWhileItsCommandShowsADialog) {
    PopupMenu popup(one_, "mnuPopup");
    MenuEntry entry(one_, "mnuEntry", "Entry", &popup);
    bool stood = false;
    entry.onClick = [&] { two_.showModal(); };
    screen_.onModal = [&](Window& window) {
        stood = popup.isOpen();
        window.hide();
    };
    one_.show();
    popup.open();
    EXPECT_EQ(hands_.click(Target::whole(entry)), "");
    EXPECT_TRUE(stood);
    EXPECT_FALSE(popup.isOpen());
}

TEST(Keys, RunTheEntriesOfTheMenuBarOutsideTextFields) {
    ModalScreen screen;
    Desktop desktop(screen);
    KeyedWindow window(desktop);
    window.show();
    UserHands hands(desktop);
    EXPECT_EQ(hands.key(window.tree, {kKeyDelete, kShiftKey}), "");
    EXPECT_EQ(hands.key(window.tree, {kKeyDelete, 0}), "");
    EXPECT_EQ(window.log, "46 remove ");
    window.edit.setEnabled(false);
    EXPECT_EQ(hands.key(window.tree, {kKeyDelete, 0}), "");
    EXPECT_EQ(window.log, "46 remove 46 ");
    window.edit.setEnabled(true);
    window.field.setText("ab");
    window.field.selectAll();
    EXPECT_EQ(hands.key(window.field, {kKeyLeft, kShiftKey}), "");
    EXPECT_EQ(hands.key(window.field, {kKeyDelete, 0}), "");
    EXPECT_EQ(window.field.text(), "a");
    EXPECT_EQ(window.log, "46 remove 46 ");
}

TEST(Keys, AreReadFromShortcuts) {
    EXPECT_EQ(keyOfShortcut("Del"), (KeyEvent{kKeyDelete, 0}));
    EXPECT_EQ(keyOfShortcut("Ctrl+X"), (KeyEvent{'X', kControlKey}));
    for (const char* other : {"", "X", "Ctrl+", "Ctrl+x", "Ctrl+F3", "Shift+X"})
        EXPECT_EQ(keyOfShortcut(other), std::nullopt) << other;
}

TEST(WindowThatHidesItselfWhenItIsLeft, LosesTheFocusOnce) {
    ModalScreen screen;
    Desktop desktop(screen);
    std::string log;
    TwoFields below(desktop, "frmBelow", log);
    TwoFields passing(desktop, "frmPassing", log);
    TwoFields wanted(desktop, "frmWanted", log);
    wanted.show();
    below.show();
    passing.show();
    passing.onDeactivate = [&] { passing.hide(); };
    log.clear();
    UserHands hands(desktop);
    EXPECT_EQ(hands.activate(wanted), "");
    EXPECT_EQ(log, "-frmPassing.first +frmWanted.first ");
    EXPECT_FALSE(passing.visible());
    EXPECT_EQ(desktop.activeWindow(), &wanted);
}

} // namespace
} // namespace zb
