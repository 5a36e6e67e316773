#include "workbench/notice_bar.h"

#include "controls/user_hands.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

namespace zb::test {
namespace {

struct NoticeTest : ::testing::Test {
    NoticeTest() {
        application.start({});
        program.screen.later.clear(); // what the start has asked for
    }

    void click(Button& button) { EXPECT_EQ(UserHands(application.desktop).click(Target::whole(button)), ""); }
    const std::string& shown() const { return notices.lblNotice.text(); }

    SystemFileLayer files;
    Program program{files};
    Application& application = program.application;
    NoticeBar& notices = application.frmWorkbench.notices;
};

TEST_F(NoticeTest, ANoticeIsShownAndLogged) {
    application.desktop.post({"Saved"});
    EXPECT_EQ(shown(), "Saved");
    const List& log = application.frmWorkbench.log.lvwLog;
    ASSERT_EQ(log.count(), 1U);
    EXPECT_EQ(log.rows()[0]->cells(), (std::vector<std::string>{"12:00", "Saved"}));
}

TEST_F(NoticeTest, ItGoesAfterSomeSeconds) {
    application.desktop.post({"Saved"});
    ASSERT_EQ(program.screen.later.size(), 1U);
    EXPECT_EQ(program.screen.later[0].delay, std::chrono::seconds(8));
    program.screen.later[0].run();
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(notices.cmdCloseNotice.visible());
}

TEST_F(NoticeTest, AnActionRunsOnceAndTakesTheNoticeAway) {
    int runs = 0;
    application.desktop.post({"17 messages read, 3 not", {{"Show", [&] { ++runs; }}}});
    EXPECT_TRUE(notices.cmdNotice[0].visible());
    EXPECT_EQ(notices.cmdNotice[0].caption(), "Show");
    EXPECT_FALSE(notices.cmdNotice[1].visible());
    click(notices.cmdNotice[0]);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(notices.cmdNotice[0].visible());
}

TEST_F(NoticeTest, ANoticeThatStaysComesBackAfterALaterOne) {
    application.desktop.post({"Changed on disk", {}, "disk", Notice::Stays::UntilClosed});
    application.desktop.post({"Saved"});
    EXPECT_EQ(shown(), "Saved");
    ASSERT_EQ(program.screen.later.size(), 1U);
    program.screen.later[0].run();
    EXPECT_EQ(shown(), "Changed on disk");
    click(notices.cmdCloseNotice);
    EXPECT_EQ(shown(), "");
}

TEST_F(NoticeTest, ALaterNoticeOfTheSameTopicTakesThePlace) {
    application.desktop.post({"one", {}, "disk", Notice::Stays::UntilClosed});
    application.desktop.post({"two", {}, "disk", Notice::Stays::UntilClosed});
    click(notices.cmdCloseNotice);
    EXPECT_EQ(shown(), "");
}

TEST_F(NoticeTest, AWithdrawnNoticeGoes) {
    application.desktop.post({"one", {}, "disk", Notice::Stays::UntilClosed});
    application.desktop.withdraw("other");
    EXPECT_EQ(shown(), "one");
    application.desktop.withdraw("disk");
    EXPECT_EQ(shown(), "");
}

TEST_F(NoticeTest, TextsOfFilesKeepToOneLine) {
    application.desktop.post({"<b>a</b>\r\nb\x1b[31m"});
    EXPECT_EQ(shown(), "<b>a</b>  b [31m");
}

TEST_F(NoticeTest, AnActionMayPostANotice) {
    application.desktop.post({"one", {{"Next", [&] { application.desktop.post({"two"}); }}}});
    click(notices.cmdNotice[0]);
    EXPECT_EQ(shown(), "two");
}

} // namespace
} // namespace zb::test
