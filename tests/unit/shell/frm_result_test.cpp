#include "shell/frm_result.h"

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

} // namespace
} // namespace zb
