#include "shell/small_dialogs.h"

#include "controls/desktop.h"
#include "support/silent_screen.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

TEST(ResultWindow, AppendsEachTextAsALine) {
    test::SilentScreen screen;
    Desktop desktop(screen);
    frmResult window(desktop);
    EXPECT_EQ(window.caption(), "Result - Zeltobench");
    window.addErrorMsg("one");
    window.addErrorMsg("two");
    EXPECT_EQ(window.rtbResult.text(), "one\r\ntwo\r\n");
    window.clearOldData();
    window.addErrorMsg("three");
    EXPECT_EQ(window.rtbResult.text(), "three\r\n");
}

TEST(AboutWindow, SaysWhenThereIsNoSystemInformation) {
    test::SilentScreen screen;
    Desktop desktop(screen);
    frmAbout window(desktop);
    window.show();
    fire(window.cmdSysInfo.onClick);
    ASSERT_EQ(screen.boxes.size(), 1U);
    EXPECT_EQ(screen.boxes.front().title, "Zeltobench");
    fire(window.cmdOK.onClick);
    EXPECT_FALSE(window.visible());
}

} // namespace
} // namespace zb
