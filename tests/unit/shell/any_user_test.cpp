#include "fuzz/any_user.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace zb {
namespace {

/// Users with random bytes; the fuzzer of the same name as their class searches on from there.
class AnyUser : public testing::TestWithParam<unsigned> {};

TEST_P(AnyUser, LeavesWholeWindows) {
    constexpr std::size_t kBytes = 40'000;
    std::mt19937 random(GetParam());
    std::vector<unsigned char> bytes(kBytes);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(random());
    int done = 0;
    for (std::span<const unsigned char> rest(bytes); !rest.empty();) {
        constexpr std::size_t kOfOneProgram = 4'000;
        const auto part = rest.first(std::min(kOfOneProgram, rest.size()));
        rest = rest.subspan(part.size());
        fuzz::AnyUser user(part);
        user.act();
        ASSERT_EQ(user.fault(), "");
        done += user.done();
    }
    RecordProperty("done", done);
    // Most actions are refused; without any that is not, nothing would have been tested.
    EXPECT_GT(done, 100);
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyUser, testing::Range(1U, 9U));

} // namespace
} // namespace zb
