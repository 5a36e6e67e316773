#include "rehearsal/typed_message.h"

#include <gmock/gmock.h>

namespace zb::test {
namespace {

std::string faultOf(std::string_view text) {
    const auto typed = rehearsal::readTypedMessage(text);
    const auto* fault = std::get_if<rehearsal::TypedFault>(&typed);
    return fault == nullptr ? std::string() : fault->place();
}

TEST(TypedMessage, HasItsStreamFunctionWaitAndItems) {
    const auto typed = rehearsal::readTypedMessage("S6F11 W\n<L\n  <U4 4001>\n  <A 'L1'>\n>.");
    const auto* message = std::get_if<rehearsal::RecordedMessage>(&typed);
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(message->header.stream, 6);
    EXPECT_EQ(message->header.function, 11);
    EXPECT_TRUE(message->header.wait);
    EXPECT_EQ(message->items.size(), 3U);
    EXPECT_EQ(message->direction, rehearsal::Direction::Unknown);
    EXPECT_FALSE(message->hasSystem);
}

TEST(TypedMessage, MayHaveAName) {
    const auto typed = rehearsal::readTypedMessage("EventReport: 'S6F11'\n<U4 1>.");
    ASSERT_TRUE(std::holds_alternative<rehearsal::RecordedMessage>(typed));
    EXPECT_EQ(std::get<rehearsal::RecordedMessage>(typed).items.size(), 1U);
}

TEST(TypedMessage, MayHaveNoData) {
    EXPECT_EQ(faultOf("S1F1 W."), "");
    EXPECT_EQ(faultOf("S1F1"), "");
}

TEST(TypedMessage, AFaultHasItsLineAndColumn) {
    EXPECT_THAT(faultOf("S6F11 W\n<L\n  <U4 4001>\n  <Q7 1>\n>."), testing::StartsWith("line 4, column "));
    EXPECT_THAT(faultOf("<U4 1>."), testing::StartsWith("line 1, column 1: a message begins"));
    EXPECT_THAT(faultOf("\n\nhello"), testing::StartsWith("line 3, column 1: a message begins"));
    EXPECT_THAT(faultOf("  \n "), testing::StartsWith("line 1, column 1: a message begins"));
}

TEST(TypedMessage, ColumnsCountCharacters) {
    const std::string ascii = faultOf("S1F1\n<L <A 'e'> <Q7 1>>.");
    EXPECT_THAT(ascii, testing::StartsWith("line 2, column "));
    EXPECT_EQ(faultOf("S1F1\n<L <A '\u00E9'> <Q7 1>>."), ascii);
}

} // namespace
} // namespace zb::test
