#include "console/suggestion.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

const std::vector<std::string> kVerbs{"build", "check", "list", "convert"};

TEST(NearestWord, IsFoundByOneEdit) {
    EXPECT_EQ(nearestWord("bild", kVerbs), "build");
    EXPECT_EQ(nearestWord("bbuild", kVerbs), "build");
    EXPECT_EQ(nearestWord("chekc", kVerbs), "check");
    EXPECT_EQ(nearestWord("lust", kVerbs), "list");
    EXPECT_EQ(nearestWord("build", kVerbs), "build");
}

TEST(NearestWord, TakesMoreEditsInALongerWord) {
    EXPECT_EQ(nearestWord("--warnigs", {"--json", "--warnings"}), "--warnings");
    EXPECT_EQ(nearestWord("--wrnigs", {"--json", "--warnings"}), "--warnings");
    EXPECT_EQ(nearestWord("convret", kVerbs), "convert");
}

TEST(NearestWord, IsNothingWhenNoWordIsNear) {
    EXPECT_EQ(nearestWord("jump", kVerbs), std::nullopt);
    EXPECT_EQ(nearestWord("", kVerbs), std::nullopt);
    EXPECT_EQ(nearestWord("x", kVerbs), std::nullopt);
    EXPECT_EQ(nearestWord("bild", {}), std::nullopt);
    EXPECT_EQ(nearestWord(std::string(100'000, 'b'), kVerbs), std::nullopt);
}

} // namespace
} // namespace zb
