#include "platform/standard_descriptors.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace zb {
namespace {

TEST(StandardDescriptors, NoFileGetsTheNumberOfAClosedOne) {
    EXPECT_EXIT(
        {
            for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
                ::close(descriptor);
            fillStandardDescriptors();
            const int file = ::open("/dev/null", O_RDWR);
            const bool failsToWrite = ::write(STDERR_FILENO, "x", 1) == -1 && errno == EBADF;
            ::_exit(file > STDERR_FILENO && failsToWrite ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST(StandardDescriptors, OpenOnesStay) {
    EXPECT_EXIT(
        {
            ::close(STDIN_FILENO);
            fillStandardDescriptors();
            ::_exit(::write(STDERR_FILENO, "still there", 11) == 11 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "still there");
}

} // namespace
} // namespace zb
