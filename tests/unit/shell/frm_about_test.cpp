#include "shell/frm_about.h"

#include "controls/desktop.h"
#include "support/silent_screen.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

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
