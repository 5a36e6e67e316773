// The checks of the library texts are only as good as their tools: these cases show that the tools can fail.
#include "unit/libraries/layout_text.h"
#include "unit/libraries/smd_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <stdexcept>

namespace zb::test {

namespace {

const std::string kBanner = std::string(70, '*') + "\n";

std::string withCrLf(const std::string& text) {
    return std::regex_replace(text, std::regex("\n"), "\r\n");
}

std::string faultOf(const std::string& text) {
    try {
        readSmdText(withCrLf(text));
    } catch (const std::runtime_error& fault) {
        return fault.what();
    }
    return "none";
}

std::string messageWith(const std::string& body) {
    return kBanner + "* T\n" + kBanner + body;
}

} // namespace

TEST(SmdText, ReadsHeadAndNestedItems) {
    const auto text = withCrLf(messageWith("S6F9: S6 F9 W H<-E\n"
                                           "    <L 2\n"
                                           "        <U2 3V A 1 2>\n"
                                           "        <L 5V BCOUNT\n"
                                           "            <A 4 B 'a b '>\n"
                                           "        >\n"
                                           "    >.\n"));
    const auto messages = readSmdText(text + text);
    ASSERT_EQ(messages.size(), 2U);
    const auto& message = messages.back();
    EXPECT_EQ(message.text, text);
    EXPECT_EQ(message.title, "T");
    EXPECT_EQ(message.name, "S6F9");
    EXPECT_EQ(message.stream, 6);
    EXPECT_EQ(message.function, 9);
    EXPECT_TRUE(message.wait);
    EXPECT_FALSE(message.autoReply);
    EXPECT_EQ(message.direction, "H<-E");
    EXPECT_EQ(layoutOf(message), "L[A, L*[B]]");
    const auto& children = message.items.front().children;
    EXPECT_THAT(children[0].values, testing::ElementsAre("1", "2"));
    EXPECT_EQ(children[1].name, "BCOUNT");
    EXPECT_THAT(children[1].children[0].values, testing::ElementsAre("a b "));
}

TEST(SmdText, RefusesWhatIsNotCanonical) {
    EXPECT_EQ(faultOf("* T\n"), "line 1: expected '" + std::string(70, '*') + "': * T");
    EXPECT_EQ(faultOf(messageWith("S1F1: S1 F1 H>E.\n")), "line 4: expected a head: S1F1: S1 F1 H>E.");
    EXPECT_EQ(faultOf(messageWith("S1F1: S1 F1 H->E\n   <L 0>.\n")),
              "line 5: expected an item at depth 0:    <L 0>.");
    EXPECT_EQ(faultOf(messageWith("S1F1: S1 F1 H->E\n    <L  0>.\n")),
              "line 5: expected an item:     <L  0>.");
    EXPECT_EQ(faultOf(messageWith("S1F1: S1 F1 H->E\n    <L 0>\n")),
              "line 6: expected an item at depth 0:     <L 0>");
    EXPECT_EQ(faultOf(messageWith("S1F1: S1 F1 H->E\n    <L 1\n        <L 0>\n")),
              "line 7: expected '    >':         <L 0>");
    EXPECT_EQ(faultOf(messageWith("S1F1: S1 F1 H->E\n    <L 1\n    >.\n")),
              "line 6: an open list needs an item:     >.");
    EXPECT_EQ(faultOf(messageWith("S1F1: S1 F1 H->E\n    <B 1\n    >.\n")),
              "line 6: only a list may stay open:     >.");
    EXPECT_EQ(faultOf(messageWith("S1F1: S1 F1 H->E.\n\n")),
              "line 5: expected '" + std::string(70, '*') + "': ");
    EXPECT_THROW(readSmdText("* T\n"), std::runtime_error);
}

TEST(LayoutTable, NumbersItemsFromTheirSecondPlaceOn) {
    EXPECT_EQ(numberRepeatedItems("L[A, L*[L[LA, A]], LA, A]"), "L[A, L*[L[LA, A2]], LA2, A3]");
    EXPECT_EQ(numberRepeatedItems("L*[L*[V]]"), "L*[L*[V]]");
    EXPECT_EQ(numberRepeatedItems("-"), "-");
}

} // namespace zb::test
