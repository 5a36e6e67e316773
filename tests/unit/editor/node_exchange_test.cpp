#include "editor/node_exchange.h"

#include "editor/name_pattern.h"
#include "messages/message_nodes.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

CopiedNodes oneMessage() {
    CopiedNodes copies;
    copies.push_back(std::make_unique<NodeTree>());
    Node& message =
        addMessageNodes(*copies.back(), nullptr, "S6F11", "S6F11: S6 F11 W <NL> H<-E", "Event \\ report");
    Node& list = copies.back()->add(&message, Relation::Child, "L 1 REPORT");
    copies.back()->add(&list, Relation::Child, "A 5 TEXT 'a\r\nb'");
    return copies;
}

TEST(NodeExchange, LosesNothing) {
    const std::string text = exchangeTextOf(oneMessage());
    const auto copies = copiesOfExchangeText(text);
    ASSERT_TRUE(copies);
    ASSERT_EQ(copies->size(), 1U);
    EXPECT_EQ(exchangeTextOf(*copies), text);
    const Node* message = copies->front()->lastRoot();
    EXPECT_EQ(message->text(), "S6F11: S6 F11 W <NL> H<-E");
    EXPECT_EQ(message->previous()->text(), "Event \\ report");
    EXPECT_EQ(message->child()->child()->text(), "A 5 TEXT 'a\r\nb'");
}

TEST(NodeExchange, RefusesWhatIsNoMessageAndNoItem) {
    for (const char* text :
         {"", "zeltobench nodes 1\n", "zeltobench nodes 1\n+\n", "zeltobench nodes 1\n0 U1 1 x\n",
          "zeltobench nodes 1\n+\n1 U1 1 x\n", "zeltobench nodes 1\n+\n0 U1 1 x\n2 U1 1 y\n",
          "zeltobench nodes 1\n+\n0 S1F1: S1 F1 H->E\n", "zeltobench nodes 1\n+\n0 \n0 about\n",
          "zeltobench nodes 1\n+\n-1 x\n", "zeltobench nodes 1\n+\n99999999999999999999 x\n"})
        EXPECT_FALSE(copiesOfExchangeText(text)) << text;
}

TEST(NodeExchange, OtherProgramsGetSml) {
    const std::string text = sharedTextOf(oneMessage());
    EXPECT_NE(text.find("S6F11 W"), std::string::npos) << text;
    EXPECT_NE(text.find("<L"), std::string::npos) << text;
}

TEST(NodeExchange, StrictReadersGetBareSml) {
    const BareSml bare = bareTextOf(oneMessage());
    EXPECT_EQ(bare.text.find("S6F11 W\r\n"), 0U) << bare.text;
    EXPECT_EQ(bare.text.find("REPORT"), std::string::npos) << bare.text;
    EXPECT_EQ(bare.text.find("//"), std::string::npos) << bare.text;
}

TEST(NamePattern, PutsThePartsIn) {
    const NameParts parts{"Event", "6", "11", "U2"};
    EXPECT_EQ(nameByPattern("S{stream}F{function}", parts), "S6F11");
    EXPECT_EQ(nameByPattern("EQ_{name}", parts), "EQ_Event");
    EXPECT_EQ(nameByPattern("{upper}{lower}{type}", parts), "EVENTeventU2");
    EXPECT_EQ(nameByPattern("", parts), "");
    for (const char* pattern : {"{", "}", "{nam}", "{name", "a}b", "{}"})
        EXPECT_FALSE(nameByPattern(pattern, parts)) << pattern;
}

} // namespace
} // namespace zb
