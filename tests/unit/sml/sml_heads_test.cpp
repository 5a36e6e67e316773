#include "unit/sml/sml_dump.h"

#include <gtest/gtest.h>

#include <ostream>

namespace zb::test {
namespace {

struct Dialect {
    const char* name;
    const char* sml;
    const char* expected;
};
void PrintTo(const Dialect& dialect, std::ostream* out) {
    *out << dialect.name;
}

class SmlHeads : public testing::TestWithParam<Dialect> {};

TEST_P(SmlHeads, AreRead) {
    EXPECT_EQ(readDump(GetParam().sml), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Dialects, SmlHeads,
    testing::Values(Dialect{"Plain", "S1F1 W.", "S1F1: S1 F1 W H<->E\n"},
                    Dialect{"PointOnItsOwnLine", "S1F1 W\r\n  .\r\n", "S1F1: S1 F1 W H<->E\n"},
                    Dialect{"LowerCase", "s1f1 w .", "S1F1: S1 F1 W H<->E\n"},
                    Dialect{"Quoted", "'S1F1' W.", "S1F1: S1 F1 W H<->E\n"},
                    Dialect{"QuotedWithTheMarkGluedOn", "\"S1F1\"W.", "S1F1: S1 F1 W H<->E\n"},
                    Dialect{"QuotedOnItsOwnLine", "'S2F18'\n<A 'x'>.", "S2F18: S2 F18 H<->E\n1 A 1 'x'\n"},
                    Dialect{"NameBefore", "IsAlive: S1F1 W.", "IsAlive: S1 F1 W H<->E\n"},
                    Dialect{"NameBeforeQuotedHead", "IsAlive :'S1F1' W.", "IsAlive: S1 F1 W H<->E\n"},
                    Dialect{"NameOnTheLineBefore", "IsAlive:\n'S1F1' W.", "IsAlive: S1 F1 W H<->E\n"},
                    Dialect{"NameThatIsTheHead", "S1F1: S1F1 W.", "S1F1: S1 F1 W H<->E\n"},
                    Dialect{"EmptyName", ":'S1F1' W.", "S1F1: S1 F1 W H<->E\n"},
                    Dialect{"NameWithBlanksAndMarks", "Ask, for 3/4 (R): 'S1F1' W.",
                            "Ask,_for_3/4_(R): S1 F1 W H<->E | Ask, for 3/4 (R)\n"
                            "note 1:1 the name Ask, for 3/4 (R) became Ask,_for_3/4_(R)\n"},
                    Dialect{"NameThatBeginsLikeAHead", "S2F37_Enable(100,1): S2F37 W.",
                            "S2F37_Enable(100,1): S2 F37 W H<->E\n"},
                    Dialect{"NumberForAName", "17: S1F1 W.",
                            "_17: S1 F1 W H<->E | 17\nnote 1:1 the name 17 became _17\n"},
                    Dialect{"BracketedMark", "S2F41 [W] * H->E\n.", "S2F41: S2 F41 W H->E\n"},
                    Dialect{"DirectionAndNameBehind", "S1F1 W H->E Ask?\n.", "Ask?: S1 F1 W H->E\n"},
                    Dialect{"BothDirections", "S1F1 W H<->E.", "S1F1: S1 F1 W H<->E\n"},
                    Dialect{"DirectionWithBlanks", "S1F1 W H <- E.", "S1F1: S1 F1 W H<-E\n"},
                    Dialect{"InputAndName", "S1F1 = in1 INPUT W.", "in1: S1 F1 W H<-E\n"},
                    Dialect{"OutputBeforeName", "S7F5 OUTPUT = out5 W.", "out5: S7 F5 W H->E\n"},
                    Dialect{"MarksInAnyOrderAndCase", "S2F41 w = x41 input.", "x41: S2 F41 W H<-E\n"},
                    Dialect{"NameAndOutput", "Comm: S1F13 OUTPUT W.", "Comm: S1 F13 W H->E\n"},
                    Dialect{"TitleLine", "\"S1F17_GoOnline\"\nS1F17 W.", "S1F17_GoOnline: S1 F17 W H<->E\n"},
                    Dialect{"TitleLikeAHead", "\"S2F13\"\nS2F13 W\n<L>.", "S2F13: S2 F13 W H<->E\n1 L 0\n"},
                    Dialect{"AngleBrackets", "<S2F33 W>\n<L\n<U4 1>\n>\n>.",
                            "S2F33: S2 F33 W H<->E\n1 L 1\n2 U4 1 1\n"},
                    Dialect{"HeadsInARow", "S1F1 W. S1F2. S1F1 W.",
                            "S1F1: S1 F1 W H<->E\nS1F2: S1 F2 H<->E\nS1F1_2: S1 F1 W H<->E\n"}));

INSTANTIATE_TEST_SUITE_P(
    Faults, SmlHeads,
    testing::Values(
        Dialect{"NoPointBeforeTheNextHead", "S1F1 W\n'S1F2'\n<L>\nName: S1F3.",
                "S1F1: S1 F1 W H<->E\nS1F2: S1 F2 H<->E\n1 L 0\nName: S1 F3 H<->E\n"
                "warning 2:1 expected \".\" at the end of the message, found \"'S1F2'\"\n"
                "warning 4:1 expected \".\" at the end of the message, found \"Name:\"\n"},
        Dialect{"NoPointAtTheEnd", "S1F1 W",
                "S1F1: S1 F1 W H<->E\n"
                "warning 1:7 expected \".\" at the end of the message, found the end of the file\n"},
        Dialect{"MarkOnAReply", "S6F12 W.",
                "S6F12: S6 F12 W H<->E\nwarning 1:1 W is set on an even function, which is a reply\n"},
        Dialect{
            "RepeatedName", "A: S1F1 W.\na: S1F3 W.",
            "A: S1 F1 W H<->E\na_2: S1 F3 W H<->E\nwarning 2:1 a second message is named a; it became a_2\n"},
        Dialect{"NamesGoBeforeNamesWeGive", "S1F1 W. S1F1: S1F1.",
                "S1F1_2: S1 F1 W H<->E\nS1F1: S1 F1 H<->E\n"},
        Dialect{"StreamTooHigh", "S129F1 W <A 'x'>.\nS128F1.",
                "S128F1: S128 F1 H<->E\nerror 1:1 expected a stream from 0 to 127, found 129\n"
                "warning 2:1 expected a stream from 0 to 127, found 128\n"},
        Dialect{"FunctionTooHigh", "S1F256.", "error 1:1 expected a function from 0 to 255, found 256\n"},
        Dialect{"WordsBeforeTheFirstHead", "This is a list\nof messages\nS1F1.",
                "S1F1: S1 F1 H<->E\nerror 1:1 expected a message, found \"This\"\n"},
        Dialect{"StrayMarks", ">\n.\nS1F1.",
                "S1F1: S1 F1 H<->E\nerror 1:1 expected a message, found \">\"\nwarning 2:1 a point ends no "
                "message\n"},
        Dialect{"UnknownMark", "S1F1 ! <L>.\nS1F2.",
                "S1F2: S1 F2 H<->E\nerror 1:6 expected W, an item or \".\", found \"!\"\n"},
        Dialect{"NoMessageAtAll", "\x01\x02\x7f", "error 1:1 expected a message, found \"\x01\x02\x7f\"\n"},
        Dialect{"NothingAtAll", " \r\n", ""}));

INSTANTIATE_TEST_SUITE_P(
    Comments, SmlHeads,
    testing::Values(
        Dialect{"StarsBeforeTheHead", "**********\n* Are You There\n**********\nS1F1 W.",
                "S1F1: S1 F1 W H<->E | Are You There\n"},
        Dialect{"BlockBeforeTheHead", "/* Are\n * You There */\nS1F1 W.",
                "S1F1: S1 F1 W H<->E | Are You There\n"},
        Dialect{"SlashesBeforeTheHead", "// Are You There\n\nS1F1 W.",
                "S1F1: S1 F1 W H<->E | Are You There\n"},
        Dialect{"HashBeforeTheHead", "# Are You There\nS1F1 W.", "S1F1: S1 F1 W H<->E | Are You There\n"},
        Dialect{"BackslashBlock", "\\* Are You There *\\\nS1F1 W.", "S1F1: S1 F1 W H<->E | Are You There\n"},
        Dialect{"BehindTheHead", "S1F1 W * Are You There\n.", "S1F1: S1 F1 W H<->E | Are You There\n"},
        Dialect{"BehindThePoint", "S1F1 W. * Are You There\n* Reply\nS1F2.",
                "S1F1: S1 F1 W H<->E | Are You There\nS1F2: S1 F2 H<->E | Reply\n"},
        Dialect{"BeforeAndBehind", "* Ask\nS1F1 W // now\n.", "S1F1: S1 F1 W H<->E | Ask; now\n"},
        Dialect{"MarksOfDefinitions", "S1F1 W // H->E <R> <NL>\n.", "S1F1: S1 F1 W <R> <NL> H->E\n"},
        Dialect{"ColonInADescription", "* Note: at 10:30\nS1F1 W.",
                "S1F1: S1 F1 W H<->E | Note - at 10-30\n"
                "note 2:1 a description cannot contain a colon; it was replaced by a dash\n"},
        Dialect{"FarFromAnyHead", "* Company list\n\n* Ask\nS1F1 W.",
                "S1F1: S1 F1 W H<->E | Ask\n"
                "note 1:1 a comment between the messages has no place in a definition\n"},
        Dialect{"NotClosed", "/* Ask\nS1F1 W.",
                "S1F1: S1 F1 W H<->E | Ask\n"
                "error 1:1 the comment is not closed; it was taken to end with its line\n"}));

INSTANTIATE_TEST_SUITE_P(
    Directives, SmlHeads,
    testing::Values(
        Dialect{"Rule", "if (S1F1) Alive.\nAlive: S1F2.",
                "Alive: S1 F2 H<->E\nwarning 1:1 a rule of what to send when is not taken over\n"},
        Dialect{"RuleWithItem", "if (S6F11(2) == <U4 10>)\n  Reply(1,2).\nS6F12.",
                "S6F12: S6 F12 H<->E\nwarning 1:1 a rule of what to send when is not taken over\n"},
        Dialect{"RuleWithPattern", "if (S2F41 <L <A \")\"> <L>> .) Reply.\nS1F1.",
                "S1F1: S1 F1 H<->E\nwarning 1:1 a rule of what to send when is not taken over\n"},
        Dialect{"RuleNotClosed", "if (S1F1 Alive.\nAlive: S1F2.",
                "Alive: S1 F2 H<->E\nwarning 1:1 a rule of what to send when is not taken over\n"
                "error 1:4 expected \")\" for the condition that begins here\n"},
        Dialect{"Timer", "every 10 send Alive.\nAlive: S1F2.",
                "Alive: S1 F2 H<->E\nwarning 1:1 a timer of what to send is not taken over\n"},
        Dialect{"Define", "#define LONGEST 12\nS1F2 <A [MAX LONGEST] 'x'>.",
                "S1F2: S1 F2 H<->E\n1 A 12V 'x'\n"
                "warning 1:1 the directive #define is not kept; its number is used in counts that name "
                "it\n"},
        Dialect{"Include", "#include \"more.sml\"\nS1F1.",
                "S1F1: S1 F1 H<->E\nwarning 1:1 the directive #include is not taken over\n"}));

} // namespace
} // namespace zb::test
