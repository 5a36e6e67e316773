#include "outputs/tmd_rules.h"

#include "model/tr_model_store.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

class DefaultTRMessagesTest : public ::testing::Test {
protected:
    std::optional<std::string> add(const std::string& name, const std::string& secsMessage,
                                   const std::string& condition = {}, int direction = kToHost) {
        TRMessageRecord record;
        record.setName(name);
        record.setSECSMessage(secsMessage);
        record.setCondition(condition);
        record.setDirection(direction);
        return defaults.add(record, kToHost);
    }

    DefaultTRMessages defaults;
};

TEST_F(DefaultTRMessagesTest, NameTheFirstDefaultOfASECSMessage) {
    EXPECT_EQ(add("A", "Hello"), std::nullopt);
    EXPECT_EQ(add("B", "World"), std::nullopt);
    EXPECT_EQ(add("C", "HELLO", "NONE"), "A");
    EXPECT_EQ(add("D", "Hello", "  "), "A");
}

TEST_F(DefaultTRMessagesTest, LeaveOutSentMessagesAndThoseWithACondition) {
    EXPECT_EQ(add("A", "Hello", "", kToEquip), std::nullopt);
    EXPECT_EQ(add("B", "Hello", "({X} == 1)"), std::nullopt);
    EXPECT_EQ(add("C", "Hello"), std::nullopt);
    EXPECT_TRUE(defaults.isDefaultRegistered("hello"));
    EXPECT_FALSE(defaults.isDefaultRegistered("World"));
}

TEST_F(DefaultTRMessagesTest, CannotDistinguishADefaultWithoutANameFromNone) {
    EXPECT_EQ(add("", "Hello"), std::nullopt);
    EXPECT_FALSE(defaults.isDefaultRegistered("Hello"));
    EXPECT_EQ(add("B", "Hello"), "");
}

TEST(SECSMessageSelected, IsEveryNameButBlanksAndNone) {
    TRMessageRecord record;
    for (const char* name : {"", "  ", "NONE"}) {
        record.setSECSMessage(name);
        EXPECT_FALSE(isSECSMessageSelected(record)) << name;
    }
    for (const char* name : {"none", "Hello"}) {
        record.setSECSMessage(name);
        EXPECT_TRUE(isSECSMessageSelected(record)) << name;
    }
}

} // namespace
} // namespace zb
