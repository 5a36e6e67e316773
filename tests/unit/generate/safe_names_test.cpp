#include "generate/safe_names.h"

#include <gtest/gtest.h>

namespace zb::generate {
namespace {

TEST(SafeNames, AreNamesOfTypesAndFields) {
    EXPECT_EQ(typeName("SelectLot", "X"), "SelectLot");
    EXPECT_EQ(typeName("SVID", "X"), "Svid");
    EXPECT_EQ(typeName("PORT_REFUSED.now", "X"), "PortRefusedNow");
    EXPECT_EQ(typeName("S1F3", "X"), "S1F3");
    EXPECT_EQ(typeName("s1f3", "X"), "S1f3");
    EXPECT_EQ(typeName("ECID[1;2]", "X"), "Ecid12");
    EXPECT_EQ(fieldName("CPVAL1", "x"), "cpval1");
    EXPECT_EQ(fieldName("endPoint", "x"), "endPoint");
}

TEST(SafeNames, HoldNothingButLettersAndDigits) {
    EXPECT_EQ(typeName("a\"; system(\"x\"); //", "X"), "ASystemX");
    EXPECT_EQ(typeName("\xEC\x97\x90\xEC\xB9\xAD", "Message"), "Message");
    EXPECT_EQ(typeName("", "Message"), "Message");
    EXPECT_EQ(typeName("7UP", "Item"), "Item7up");
}

TEST(SafeNames, AreGivenOnce) {
    const std::unordered_set<std::string> reserved{"class", "class2"};
    SafeNames names(reserved);
    names.reserve("Outer");
    EXPECT_EQ(names.take("a"), "a");
    EXPECT_EQ(names.take("a"), "a2");
    EXPECT_EQ(names.take("A"), "A3");
    EXPECT_EQ(names.take("class"), "class3");
    EXPECT_EQ(names.take("outer"), "outer2");
}

TEST(SafeNames, AreShortEnoughForNamesOfFiles) {
    const std::string longName(70000, 'x');
    EXPECT_EQ(typeName(longName, "X"), "X" + std::string(99, 'x'));
    EXPECT_EQ(fieldName(longName, "x"), std::string(100, 'x'));
}

} // namespace
} // namespace zb::generate
