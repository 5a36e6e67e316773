#include "controls/desktop.h"
#include "controls/list.h"
#include "controls/menu.h"
#include "controls/user_hands.h"
#include "controls/window.h"
#include "silent_screen.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace zb {
namespace {

class Fixed final : public Window {
public:
    explicit Fixed(Desktop& desktop) : Window(desktop, "frmFixed") {
        list.onMouseUp = [this](int button, ListRow* /*row*/) {
            if (button == 2)
                menu.open();
        };
        cut.onClick = [this] { log += "cut "; };
    }
    std::string log;
    PopupMenu menu{*this, "mnuPopup"};
    MenuEntry cut{*this, "mnuCut", "Cut", &menu};
    List list{*this, "lvwList"};
    List other{*this, "lvwOther"};
};

class Ours final : public Window {
public:
    Ours(Desktop& desktop, std::string& log) : Window(desktop, "frmOurs") {
        more.onClick = [&log] { log += "more "; };
        menu.onOpen = [&log] { log += "opens "; };
        menu.onClosed = [&log] { log += "closes "; };
    }
    PopupMenu menu{*this, "mnuMore"};
    MenuEntry more{*this, "mnuMoreOne", "More", &menu};
};

class PopupCompanion : public testing::Test {
protected:
    PopupCompanion() {
        fixed.show();
        desktop.showPart(ours);
        fixed.menu.setCompanion(ours.menu);
    }
    SilentScreen screen;
    Desktop desktop{screen};
    Fixed fixed{desktop};
    Ours ours{desktop, fixed.log};
    UserHands hands{desktop};
};

TEST_F(PopupCompanion, OpensAndClosesWithItsHost) {
    ASSERT_EQ(hands.rightClick(Target::whole(fixed.list)), "");
    EXPECT_TRUE(fixed.menu.isOpen());
    EXPECT_TRUE(ours.menu.isOpen());
    hands.dismiss();
    EXPECT_FALSE(fixed.menu.isOpen());
    EXPECT_FALSE(ours.menu.isOpen());
    EXPECT_EQ(fixed.log, "opens closes ");
}

TEST_F(PopupCompanion, ItsEntryRunsAndClosesBothWithoutAChangeOfTheFocus) {
    hands.rightClick(Target::whole(fixed.list));
    ASSERT_EQ(hands.click(Target::whole(ours.more)), "");
    EXPECT_EQ(fixed.log, "opens more closes ");
    EXPECT_FALSE(fixed.menu.isOpen());
    EXPECT_EQ(desktop.activeWindow(), &fixed);
    EXPECT_TRUE(fixed.list.focused());
}

TEST_F(PopupCompanion, TheEntriesOfTheHostRunAsBefore) {
    hands.rightClick(Target::whole(fixed.list));
    ASSERT_EQ(hands.click(Target::whole(fixed.cut)), "");
    EXPECT_EQ(fixed.log, "opens cut closes ");
}

TEST_F(PopupCompanion, ItsEntryCannotBeClickedWhileItIsClosed) {
    EXPECT_EQ(hands.click(Target::whole(ours.more)), "frmOurs.mnuMore is not open");
    EXPECT_EQ(fixed.log, "");
}

TEST_F(PopupCompanion, AnActionElsewhereClosesBoth) {
    hands.rightClick(Target::whole(fixed.list));
    hands.click(Target::whole(fixed.other));
    EXPECT_FALSE(ours.menu.isOpen());
}

TEST_F(PopupCompanion, MayGoBeforeItsHost) {
    {
        Ours passing{desktop, fixed.log};
        fixed.menu.setCompanion(passing.menu);
    }
    EXPECT_EQ(fixed.menu.companion(), nullptr);
    ASSERT_EQ(hands.rightClick(Target::whole(fixed.list)), "");
    EXPECT_TRUE(fixed.menu.isOpen());
}

TEST_F(PopupCompanion, AListWithoutAMenuOfItsOwnOpensOursDirectly) {
    ours.menu.setLeavesFocus();
    fixed.other.setContextMenu(&ours.menu);
    ASSERT_EQ(hands.rightClick(Target::whole(fixed.other)), "");
    EXPECT_TRUE(ours.menu.isOpen());
    EXPECT_FALSE(fixed.menu.isOpen());
    ASSERT_EQ(hands.click(Target::whole(ours.more)), "");
    EXPECT_EQ(desktop.activeWindow(), &fixed);
}

} // namespace
} // namespace zb
