#include "rehearsal/log_time.h"

#include <gtest/gtest.h>

namespace zb::rehearsal {
namespace {

std::string textOf(std::string_view line) {
    const auto found = findTime(line);
    return found ? found->time.text() : "";
}

TEST(LogTime, ReadsTheFormsOfLogs) {
    EXPECT_EQ(textOf("2022-12-15 15:36:24.6668|Trace"), "2022-12-15T15:36:24.6668");
    EXPECT_EQ(textOf("2021-03-04T10:11:12.345  Receive"), "2021-03-04T10:11:12.345");
    EXPECT_EQ(textOf("2024-09-24 10:00:00,123 - x"), "2024-09-24T10:00:00.123");
    EXPECT_EQ(textOf("20090305_101112"), "2009-03-05T10:11:12.000");
    EXPECT_EQ(textOf("# Recv [ 192.168.1.51:2493 -> 192.168.1.31:5000 ] 2009/03/05 10:11:12.345"),
              "2009-03-05T10:11:12.345");
    EXPECT_EQ(textOf("[15.12.2022 15:36:24] x"), "2022-12-15T15:36:24.000");
    EXPECT_EQ(textOf("12/15/2022 9:36:24"), "2022-12-15T09:36:24.000");
    EXPECT_EQ(textOf("10:11:12.5"), "10:11:12.500");
}

TEST(LogTime, OtherNumbersAreNoTime) {
    for (const char* line : {"", "S1F13", "<U4 2022>", "192.168.1.51:2493", "00 00 00 0A 81 0D", "2022-13-15",
                             "25:00:00", "10:11"})
        EXPECT_EQ(textOf(line), "") << line;
}

} // namespace
} // namespace zb::rehearsal
