#include "unit/messages/workbench.h"

#include "messages/message_store.h"

#include <gmock/gmock.h>

namespace zb {
namespace {

using test::crlf;
using testing::ElementsAre;

struct Head {
    std::string text;
    std::string name;
    int stream;
    int function;
    std::string marks; ///< of W, R, N
    std::string direction;
    bool right;
};

void PrintTo(const Head& tested, std::ostream* out) {
    *out << tested.text;
}

class Heads : public testing::TestWithParam<Head> {};

TEST_P(Heads, AreTakenApart) {
    const Head& head = GetParam();
    SECSMessageRecord record;
    EXPECT_EQ(record.parseNodeText(head.text, "about it").empty(), head.right);
    EXPECT_EQ(record.getName(), head.name);
    EXPECT_EQ(record.getStream(), head.stream);
    EXPECT_EQ(record.getFunction(), head.function);
    const std::string marks = std::string(record.getWait() ? "W" : "") + (record.getReply() ? "R" : "") +
                              (record.getNoLogging() ? "N" : "");
    EXPECT_EQ(marks, head.marks);
    EXPECT_EQ(record.getDirection(), head.direction);
    EXPECT_EQ(record.getHeadText(), "about it\r\n" + head.text);
}

INSTANTIATE_TEST_SUITE_P(
    MessageRecord, Heads,
    testing::Values(Head{"AreYouThere: S1 F1 W <R> H<->E", "AreYouThere", 1, 1, "WR", "H<->E", true},
                    Head{"OnLineData: S1 F2 H<-E", "OnLineData", 1, 2, "", "H<-E", true},
                    Head{"S1F3: S1 F3 W H->E", "S1F3", 1, 3, "W", "H->E", true},
                    Head{"Quiet: S127 F255 <NL> H->E", "Quiet", 127, 255, "N", "H->E", true},
                    Head{"My Msg: S1 F1 H->E", "My Msg", 1, 1, "", "H->E", true},
                    Head{"NoDirection: S1 F1 W", "NoDirection", 1, 1, "W", "H<->E", false},
                    Head{"Odd: Sx F1 H->E", "Odd", -1, 1, "", "H->E", false},
                    Head{"Odd: S1", "Odd", 1, -1, "", "H<->E", false},
                    Head{"Odd: S1 F1 W? H->E", "Odd", 1, 1, "", "H->E", false},
                    Head{"Tight:S1 F1 H->E", "Tight:S1 F1 H->E", -1, -1, "", "H<->E", false},
                    Head{": S1 F1 H->E", "", 1, 1, "", "H->E", false},
                    Head{"", "", -1, -1, "", "H<->E", false}));

std::string bodyOf(std::initializer_list<std::string_view> lines) {
    SECSMessageRecord record;
    EXPECT_EQ(record.parseSmd(crlf(lines), kFormatSmd), "");
    return record.getBodyText();
}

TEST(MessageRecord, BothFormsGiveTheSameItems) {
    const std::string expected = crlf({"1 L 2", "2 A 6 MDLN 'HLVFAb'", "2 L 1", "3 U1 1 5", "1 B 1 0"});
    EXPECT_EQ(bodyOf({"* about", "M: S1 F2 H<-E", "    L 2", "        A 6 MDLN 'HLVFAb'", "        L 1",
                      "            U1 1 5", "    B 1 0."}),
              expected);
    EXPECT_EQ(bodyOf({"***", "* about", "***", "M: S1 F2 H<-E", "    <L 2", "        <A 6 MDLN 'HLVFAb'>",
                      "        <L 1", "            <U1 1 5>", "        >", "    >", "    <B 1 0>."}),
              expected);
}

TEST(MessageRecord, BuildFormIsReadWithoutCare) {
    SECSMessageRecord record;
    const std::string text = "* about\nM:  S1 F2 \t W H<-E  \n<l 2\n\t<a\t3  N\t'a  >' >  \n<u1 1 5>>.  \n";
    EXPECT_EQ(record.parseSmd(text, kFormatGem), "");
    EXPECT_EQ(record.getDescription(), "about");
    EXPECT_TRUE(record.getWait());
    EXPECT_EQ(record.getBodyText(), crlf({"1 L 2", "2 A 3 N 'a  >'", "2 U1 1 5"}));
}

TEST(MessageRecord, ItemsKnowTheirLevels) {
    SECSMessageRecord record;
    record.parseSmd(
        crlf({"M: S1 F2 H<-E", "    L 1", "        L 1V N", "            U1 1 ID 0", "    A 1 'x'."}),
        kFormatSmd);
    std::vector<std::pair<std::string, int>> levels;
    for (const SECSItemRecord& item : record.getItems())
        levels.emplace_back(composeItemText(item), item.getLevel());
    EXPECT_THAT(levels, ElementsAre(std::pair("L 1", 1), std::pair("L 1V N", 2), std::pair("U1 1 ID 0", 3),
                                    std::pair("A 1 'x'", 1)));
}

TEST(MessageRecord, ColonsInValuesAndDescriptionsArePartOfThem) {
    SECSMessageRecord record;
    EXPECT_EQ(record.parseSmd(crlf({"* at 12:30", "M: S1 F2 H<-E", "    A 5 T '12:30'."}), kFormatSmd), "");
    EXPECT_EQ(record.getDescription(), "at 12:30");
    EXPECT_EQ(record.getBodyText(), crlf({"1 A 5 T '12:30'"}));
}

class NoMessages : public testing::TestWithParam<std::string> {};

TEST_P(NoMessages, AreReported) {
    SECSMessageRecord record;
    for (const int format : {kFormatGem, kFormatSemi, kFormatSmd, kFormatMdf})
        EXPECT_NE(record.parseSmd(GetParam(), format), "") << GetParam();
}

INSTANTIATE_TEST_SUITE_P(
    MessageRecord, NoMessages,
    testing::Values("", "   \r\n", "* only a comment\r\n", "some words\r\n", "M: S1 F1\r\n",
                    "M: Sx F1 H->E.\r\n", "M: S1 F1 H->E\r\n    Z 1 5.\r\n",
                    "M: S1 F1 H->E\r\n    A two 'x'.\r\n", "M: S1 F1 H->E\r\n    <L 1\r\n",
                    "M: S1 F1 H->E\r\n    <U1 1 5\r\n    >.\r\n", "M: S1 F1 H->E\r\n    <U1 1 5>>.\r\n",
                    "M: S1 F1 H->E\r\n    <L 1\r\n        <U1 1 5>.\r\n    >.\r\n",
                    "M: S1 F1 H->E.\r\nN: S1 F1 H->E.\r\n", "<L 0>.\r\n",
                    "MESSAGE M\r\nHEAD S1 F1\r\nEND\r\n"));

TEST(MessageRecord, OtherFormatsAreReported) {
    SECSMessageRecord record;
    EXPECT_NE(record.parseSmd("M: S1 F1 H->E.\r\n", kFormatSml), "");
    EXPECT_NE(record.parseSmd("M: S1 F1 H->E.\r\n", 0), "");
}

TEST(MessageRecord, ListsNestedWithoutEndAreRefused) {
    std::string text = "M: S1 F1 H->E\r\n";
    for (int i = 0; i < 100000; ++i)
        text += "<L 1\n";
    SECSMessageRecord record;
    EXPECT_EQ(record.parseSmd(text, kFormatSmd), "The lists are nested too deep");
}

TEST(MessageStore, FindsByNameAndByStreamAndFunction) {
    SECSMessageStore store;
    EXPECT_EQ(store.addMessageText("* a\r\nOnLineData: S1 F2 H<-E.\r\n"), "");
    EXPECT_EQ(store.addMessageText("* b\r\nIAmHere: S1 F2 H->E.\r\n"), "");
    EXPECT_EQ(store.addMessageText("* c\r\nS1F3: S1 F3 W H->E.\r\n"), "");
    ASSERT_EQ(store.getMessages().size(), 3U);
    EXPECT_EQ(store.getByName("iamhere"), store.getMessages()[1]);
    EXPECT_EQ(store.getByName("nobody"), nullptr);
    EXPECT_THAT(store.getByStreamFunction("S1 F2"),
                ElementsAre(store.getMessages()[0], store.getMessages()[1]));
    EXPECT_TRUE(store.getByStreamFunction("S1 F4").empty());
    EXPECT_TRUE(store.getByStreamFunction("nonsense").empty());
}

TEST(MessageStore, ATextThatIsNoMessageGivesNoRecordYetIsWritten) {
    SECSMessageStore store;
    EXPECT_NE(store.addMessageText("* \r\nnote: this is text.\r\n"), "");
    EXPECT_EQ(store.addMessageText("* a\r\nM: S1 F1 H->E.\r\n"), "");
    EXPECT_EQ(store.getMessages().size(), 1U);
    EXPECT_TRUE(store.getMessages()[0]->MessageName() == "M" && !store.getMessages()[0]->autoreply());
    EXPECT_EQ(store.allTexts(), "* \r\nnote: this is text.\r\n* a\r\nM: S1 F1 H->E.\r\n");
}

} // namespace
} // namespace zb
