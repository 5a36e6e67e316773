#include "messages/sml/unique_names.h"

#include <gtest/gtest.h>

#include <set>

namespace zb::sml {
namespace {

TEST(UniqueNames, ATakenNameGetsTheNextFreeNumber) {
    UniqueNames names;
    EXPECT_EQ(names.take("CEID"), "CEID");
    EXPECT_EQ(names.take("CEID3"), "CEID3");
    EXPECT_EQ(names.take("ceid"), "ceid2");
    EXPECT_EQ(names.take("Ceid"), "Ceid4");
    EXPECT_EQ(names.take("CEID3"), "CEID32");
}

TEST(UniqueNames, AClearedSetHoldsNothing) {
    UniqueNames names;
    names.take("A");
    names.take("A");
    names.clear();
    EXPECT_EQ(names.take("a"), "a");
    EXPECT_EQ(names.take("a"), "a2");
}

TEST(UniqueNames, ManyNamesStayApart) {
    constexpr int kCount = 5000;
    UniqueNames names;
    for (int round = 0; round < 2; ++round, names.clear()) {
        std::set<std::string> taken;
        for (int i = 0; i < kCount; ++i) {
            taken.emplace(names.take("N" + std::to_string(i)));
            taken.emplace(names.take("SAME"));
        }
        EXPECT_EQ(taken.size(), 2U * kCount);
        EXPECT_EQ(taken.count("N4999") + taken.count("SAME") + taken.count("SAME5000"), 3U);
    }
}

} // namespace
} // namespace zb::sml
