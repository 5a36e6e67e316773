#include "messages/name_set.h"

#include <gtest/gtest.h>

#include <string>

namespace zb {
namespace {

TEST(NameSet, TakesEachNameOnceInWhateverCase) {
    NameSet names;
    EXPECT_TRUE(names.add("Door"));
    EXPECT_FALSE(names.add("DOOR"));
    EXPECT_FALSE(names.add("door"));
    EXPECT_TRUE(names.add("Doo"));
    EXPECT_TRUE(names.add("gr\u00F6\u00DFe"));
    EXPECT_FALSE(names.add("GR\u00D6SSE"));
}

TEST(NameSet, TakesTheEmptyNameOnce) {
    NameSet names;
    EXPECT_TRUE(names.add(""));
    EXPECT_FALSE(names.add(""));
}

TEST(NameSet, HasNoNameAfterItWasCleared) {
    NameSet names;
    EXPECT_TRUE(names.add("Door"));
    names.clear();
    EXPECT_TRUE(names.add("DOOR"));
    EXPECT_FALSE(names.add("Door"));
}

TEST(NameSet, KeepsItsNamesWhenItGrows) {
    NameSet names;
    constexpr int kMany = 10'000;
    for (int number = 0; number < kMany; ++number)
        EXPECT_TRUE(names.add("Name" + std::to_string(number)));
    for (int number = 0; number < kMany; ++number)
        EXPECT_FALSE(names.add("NAME" + std::to_string(number)));
}

} // namespace
} // namespace zb
