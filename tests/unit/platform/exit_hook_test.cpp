#include "platform/exit_hook.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace zb::test {
namespace {

TEST(ExitHookDeathTest, RunsWhenTheProcessEndsThroughExit) {
    EXPECT_EXIT(
        {
            const ExitHook hook([] { std::fputs("kept", stderr); });
            std::exit(3);
        },
        ::testing::ExitedWithCode(3), "^kept$");
}

TEST(ExitHookDeathTest, DoesNotRunAfterItsObject) {
    EXPECT_EXIT(
        {
            {
                const ExitHook hook([] { std::fputs("kept", stderr); });
            }
            std::exit(3);
        },
        ::testing::ExitedWithCode(3), "^$");
}

TEST(ExitHookDeathTest, LetsTheProcessEndWhenItFails) {
    EXPECT_EXIT(
        {
            const ExitHook hook([] { throw std::runtime_error("no memory"); });
            std::exit(3);
        },
        ::testing::ExitedWithCode(3), "^$");
}

} // namespace
} // namespace zb::test
