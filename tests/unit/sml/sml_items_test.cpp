#include "unit/sml/sml_dump.h"

#include "platform/code_page.h"
#include "platform/text.h"

#include <gtest/gtest.h>

#include <ostream>

namespace zb::test {
namespace {

struct Dialect {
    const char* name;
    const char* item;     // the body of a message
    const char* expected; // its item Texts, and the findings
};
void PrintTo(const Dialect& dialect, std::ostream* out) {
    *out << dialect.name;
}

class SmlItems : public testing::TestWithParam<Dialect> {};

TEST_P(SmlItems, AreRead) {
    const std::string read = readDump("S1F1\n" + std::string(GetParam().item) + ".\n");
    EXPECT_EQ(replaceAll(read, "S1F1: S1 F1 H<->E\n", ""), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Types, SmlItems,
    testing::Values(
        Dialect{"Ascii", "<A 'abc'>", "1 A 3 'abc'\n"}, Dialect{"Jis8", "<JIS8 \"abc\">", "1 J 3 'abc'\n"},
        Dialect{"Binary", "<B 0x0A 0b101 0o17 10 0x0>", "1 B 5 10 5 15 10 0\n"},
        Dialect{"BinarySpelledOut", "<Binary 1>", "1 B 1 1\n"},
        Dialect{"Booleans", "<BOOLEAN T false TRUE f 1 0 0x01>",
                "1 BOOLEAN 7 True False True False True False True\n"},
        Dialect{"BooleanSpellings", "<L <Boolean True> <BOOL F> <boolean '0x1'>>",
                "1 L 3\n2 BOOLEAN 1 True\n2 BOOLEAN 1 False\n2 BOOLEAN 1 True\n"},
        Dialect{"Signed", "<L <I1 -128 127> <I2 -5> <I4 +6> <I8 -9223372036854775808>>",
                "1 L 4\n2 I1 2 -128 127\n2 I2 1 -5\n2 I4 1 6\n2 I8 1 -9223372036854775808\n"},
        Dialect{"Unsigned", "<L <U1 0xFF> <U2 007> <U4 1> <U8 18446744073709551615>>",
                "1 L 4\n2 U1 1 255\n2 U2 1 7\n2 U4 1 1\n2 U8 1 18446744073709551615\n"},
        Dialect{"Floats", "<L <F4 +0.1 .5 1e3> <F8 1E-3 -2 1.5e+300>>",
                "1 L 2\n2 F4 3 +0.1 .5 1e3\n2 F8 3 1E-3 -2 1.5e+300\n"},
        Dialect{"LowerCase", "<l <u1 1> <a 'x'>>", "1 L 2\n2 U1 1 1\n2 A 1 'x'\n"},
        Dialect{"AnyType", "<L <V> <CPVAL> <NOW[16]> <v> = RESULT>",
                "1 L 4\n2 X 80V ''\n2 X 80V CPVAL ''\n2 X 16 NOW ''\n2 X 80V RESULT ''\n"},
        Dialect{"LocalText", "<W 'x'>",
                "1 X 1 'x'\nnote 2:1 text with an encoding of its own became an item of any type\n"},
        Dialect{"EmptyItems", "<L <A> <A ''> <A[0]> <B> <U4> <L> <L[0]> <BOOLEAN >>",
                "1 L 8\n2 A 0 ''\n2 A 0 ''\n2 A 0 ''\n2 B 0\n2 U4 0\n2 L 0\n2 L 0\n2 BOOLEAN 0\n"},
        Dialect{"QuotedNumbers", "<L <U2 '356'> <I4 '4 -4'> <B '0x0A'> <F4 \"1.5\"> <U4 ''>>",
                "1 L 5\n2 U2 1 356\n2 I4 2 4 -4\n2 B 1 10\n2 F4 1 1.5\n2 U4 0\n"},
        Dialect{"NoType", "<\n<U1 29>\n>",
                "1 L 1\n2 U1 1 29\nerror 3:1 expected an item type; the item was read as a list\n"},
        Dialect{"NoTypeButACount", "< [2] <B 300> <A 'x'>>",
                "1 L 2\n2 B 1 255\n2 A 1 'x'\nerror 2:3 expected an item type; the item was read as a list\n"
                "error 2:10 expected a whole number from 0 to 255, found \"300\"; it was read as 255\n"},
        Dialect{"ValuesWithoutAType", "<L < -1 300> <3> <'a b'>>",
                "1 L 3\n2 X 6 '-1 300'\n2 X 1 '3'\n2 X 3 'a b'\n"
                "error 2:6 expected an item type; the item was read as one of any type\n"
                "error 2:15 expected an item type; the item was read as one of any type\n"
                "error 2:19 expected an item type; the item was read as one of any type\n"},
        Dialect{"OneLine", "<L[2]<U4 1><U4 2>>", "1 L 2\n2 U4 1 1\n2 U4 1 2\n"},
        Dialect{"SpacesEverywhere", "< L [ 2 ]\n< U2  1 >\n<A\t'x' > >  ", "1 L 2\n2 U2 1 1\n2 A 1 'x'\n"},
        Dialect{"CommasBetweenItems", "<L <U4 1> , <U4 2>,\n>",
                "1 L 2\n2 U4 1 1\n2 U4 1 2\n"
                "warning 2:11 items are separated by white space; the comma was read as white space\n"
                "warning 2:19 items are separated by white space; the comma was read as white space\n"},
        Dialect{"BareHexadecimal", "<B 00 A4 0D 10>",
                "1 B 4 0 164 13 10\nwarning 2:7 A4 was read as a hexadecimal number\n"
                "warning 2:10 0D was read as a hexadecimal number\n"},
        Dialect{"SeveralRoots", "<U1 1> <U1 2>",
                "1 U1 1 1\n1 U1 1 2\nwarning 2:8 the message has more than one item outside of a list\n"}));

INSTANTIATE_TEST_SUITE_P(
    Counts, SmlItems,
    testing::Values(
        Dialect{"Fixed", "<A[3] 'abc'>", "1 A 3 'abc'\n"}, Dialect{"WithoutValues", "<U2[4]>", "1 U2 4\n"},
        Dialect{"Range", "<A[0..40] 'abc'>", "1 A 40V 'abc'\n"},
        Dialect{"RangeToOneNumber", "<U1[2..2] 1 2>", "1 U1 2 1 2\n"},
        Dialect{"UpTo", "<U1[..5] 1>", "1 U1 5V 1\n"},
        Dialect{"FromOn", "<U1[5..] 1>",
                "1 U1 80V 1\nnote 2:4 a count has an upper bound only; the lower one, 5, is left out\n"},
        Dialect{"Maximum", "<L <A [MAX 32] > = Mdln <U1[ Max 6] 1>= Data1>",
                "1 L 2\n2 A 32V Mdln ''\n2 U1 6V Data1 1\n"},
        Dialect{"UndefinedMaximum", "<A[MAX LONGEST]>",
                "1 A 80V ''\nwarning 2:1 the count LONGEST is defined nowhere\n"},
        Dialect{"Comma", "<L,2 <A,5 [MDLN] 'MDLN1'> <U1 , 1 7>>", "1 L 2\n2 A 5 MDLN 'MDLN1'\n2 U1 1 7\n"},
        Dialect{"ListTooShort", "<L[3] <U1 1>>",
                "1 L 1\n2 U1 1 1\nwarning 2:1 the list is declared to hold 3 items and holds 1\n"},
        Dialect{"TextTooLong", "<A[2] 'abc'>",
                "1 A 3 'abc'\nwarning 2:1 the item is declared to hold 2 characters and holds 3; the count "
                "was raised\n"},
        Dialect{"TextTooShort", "<A[5] 'abc'>",
                "1 A 5 'abc'\nwarning 2:1 the item is declared to hold 5 characters and holds 3\n"},
        Dialect{"ValuesBeyondTheBound", "<U1[..1] 1 2>",
                "1 U1 2V 1 2\nwarning 2:1 the item is declared to hold 1 values and holds 2; the count was "
                "raised\n"},
        Dialect{"BeyondSixteenBits", "<A[MAX 100000]>",
                "1 A 32767V ''\nwarning 2:1 a count goes up to 32767; 100000 was lowered to that\n"},
        Dialect{"VariableList", "<L[0..9] <U4 VID>>", "1 L 9V VIDCOUNT\n2 U4 1 VID\n"},
        Dialect{"VariableListOfSeveral", "<L[0..9] <U4 1> <U4 2>>",
                "1 L 2\n2 U4 1 1\n2 U4 1 2\nwarning 2:1 a list of a variable count repeats one item, and "
                "this one holds "
                "2 items; it was read as a list of just these\n"}));

INSTANTIATE_TEST_SUITE_P(
    Repetition, SmlItems,
    testing::Values(
        Dialect{"PointsBehindTheItem", "<L <U4 VID> ...>", "1 L 20V VIDCOUNT\n2 U4 1 VID\n"},
        Dialect{"PointsAsCount", "<L[...] <L <A ALCD> <U4 ALID>>> = ALARMS",
                "1 L 20V ALARMS\n2 L 2\n3 A 80V ALCD ''\n3 U4 1 ALID\n"},
        Dialect{"ElementShownTwice", "<L[8] <U4 0> <U4 0> ...>", "1 L 8V LISTCOUNT\n2 U4 1 0\n"},
        Dialect{"DifferentValuesShown", "<L <U4 1> <U4 2> ...>",
                "1 L 20V LISTCOUNT\n2 U4 1 1\n"
                "warning 2:1 the list repeats its first item; the values of the others are left out\n"},
        Dialect{"DifferentItems", "<L <U4 1> <A 'x'> ...>",
                "1 L 2\n2 U4 1 1\n2 A 1 'x'\nwarning 2:1 the repetition of several different items has no "
                "form in a "
                "definition; the list was read with the items it shows\n"},
        Dialect{"NothingToRepeat", "<L ...>",
                "1 L 20V LISTCOUNT\nwarning 2:4 there is no item before \"...\" to repeat\n"},
        Dialect{"Nested", "<L <L <U4 A> ...> ...>", "1 L 20V LISTCOUNT\n2 L 20V ACOUNT\n3 U4 1 A\n"},
        Dialect{"NestedAndShownTwice", "<L <L <U4 A> <U4 A> ...> <L <U4 A> <U4 A> ...> ...>",
                "1 L 20V LISTCOUNT\n2 L 20V ACOUNT\n3 U4 1 A\n"},
        Dialect{"InValues", "<U1 1 2 ...>", "1 U1 80V 1 2\n"},
        Dialect{"GluedToAValue", "<B 0x47 0x4F...>", "1 B 80V 71 79\n"}));

INSTANTIATE_TEST_SUITE_P(
    Names, SmlItems,
    testing::Values(
        Dialect{"InPlaceOfTheValue", "<L <A MDLN> <A [6] SOFTREV> <U4 VID> <B [1] DRACK>>",
                "1 L 4\n2 A 80V MDLN ''\n2 A 6 SOFTREV ''\n2 U4 1 VID\n2 B 1 DRACK\n"},
        Dialect{"BehindTheItem", "<L <U1[1] 7>= Data1 <V>=RESULT> = ALL",
                "1 L 2 ALL\n2 U1 1 Data1 7\n2 X 80V RESULT ''\n"},
        Dialect{"OfTheRoot", "<B [1] 0> = AckCode", "1 B 1 AckCode 0\n"},
        Dialect{"BareVariable", "<L first second[0]>", "1 L 2\n2 X 80V first ''\n2 X 80V second ''\n"},
        Dialect{"AmongValues", "<U2 1 SVIDS 3>",
                "1 U2 2 SVIDS 1 3\nnote 2:7 the name among the values became the name of the item\n"},
        Dialect{"SecondName", "<U2 A B>", "1 U2 1 A\nwarning 2:7 an item has one name; B is left out\n"},
        Dialect{"Repeated", "<L <U4 ID> <U4 id>>",
                "1 L 2\n2 U4 1 ID\n2 U4 1 id2\nnote 2:12 a second item is named id; it became id2\n"},
        Dialect{"OtherCharacters", "<L <U4 A-B> <U4[c d]>>",
                "1 L 2\n2 U4 1 A_B\n2 U4 1 c_d\nnote 2:4 the name A-B became A_B\nnote 2:13 the name c d "
                "became c_d\n"},
        Dialect{"NoLettersOfItsOwn", "<U4 1> = \xc3\xa9",
                "1 U4 1 1\nwarning 2:1 the name \xc3\xa9 has no letter that an item's name may have\n"},
        Dialect{"PointInAName", "<L <A A.1> <U4 B.1>>",
                "1 L 2\n2 A 80V A.1 ''\n2 U4 1 B_1\nnote 2:12 the name B.1 became B_1\n"},
        Dialect{"InAComment",
                "<L * DATA\n<U4 1> * CEID\n<A 'A1'>* Wafer ID\n<B 0> // ACKC\n<B 1> /* = X */\n>",
                "1 L 4 DATA\n2 U4 1 CEID 1\n2 A 2 Wafer_ID 'A1'\n2 B 1 ACKC 0\n2 B 1 X 1\n"},
        Dialect{"SentenceInAComment", "<L\n// all of them\n<U4 1> * 1 = on, 2 = off, else unknown\n>",
                "1 L 1\n2 U4 1 1\nnote 3:1 2 comments within the message have no place in a definition\n"},
        Dialect{"CommentBehindANamedItem", "<U4 CEID> * Collection Event\n",
                "1 U4 1 CEID\nnote 2:11 a comment within the message has no place in a definition\n"},
        Dialect{"KeyInAComment", "<A[3] 'abc'> // MDLN [K]\n", "1 A 3 MDLN 'abc' [K]\n"}));

INSTANTIATE_TEST_SUITE_P(
    Texts, SmlItems,
    testing::Values(
        Dialect{"SeveralStrings", "<A 'abc' \"def\">", "1 A 6 'abcdef'\n"},
        Dialect{"CharacterCodes", "<A \"A\" 0x42 67>", "1 A 3 'ABC'\n"},
        Dialect{"CodesOfACodePage", "<A 0xE9>", "1 A 1 '\xc3\xa9'\n"},
        Dialect{"ControlCodes", "<A 'a' 0x0A 'b'>",
                "1 A 3 'a b'\nwarning 2:1 a text is one line without control codes; they were "
                "replaced by blanks\n"},
        Dialect{"LineBreak", "<A 'a\r\nb'>",
                "1 A 3 'a b'\nwarning 2:1 a text is one line without control codes; they were "
                "replaced by blanks\n"},
        Dialect{"CloserWithin", "<A \"Gate:1>Slot:2>\">", "1 A 14 'Gate:1>Slot:2>'\n"},
        Dialect{"CommentMarksWithin", "<A 'a /* b // c * d'>", "1 A 15 'a /* b // c * d'\n"},
        Dialect{"OtherQuoteWithin", "<L <A 'say \"hi\"'> <A \"it's\">>",
                "1 L 2\n2 A 8 'say \"hi\"'\n2 A 4 'it`s'\nwarning 2:19 a text cannot contain an "
                "apostrophe; it was replaced by `\n"},
        Dialect{"SameQuoteWithin", "<A 'Joe's lot'>",
                "1 A 9 'Joe`s lot'\nwarning 2:1 a text cannot contain an apostrophe; it was replaced by `\n"
                "warning 2:8 a quote is inside the text that it starts\n"},
        Dialect{"EscapedQuotes", "<A \"say \\\"hi\\\" now\">", "1 A 12 'say \"hi\" now'\n"},
        Dialect{"BackslashAtTheEnd", "<L <A 'C:\\'> <A \"D:\\new\\\">>",
                "1 L 2\n2 A 3 'C:\\'\n2 A 7 'D:\\new\\'\n"},
        Dialect{"BackslashesStayThemselves", "<L <A 'a\\\\b'> <A[4] 'a\\\\b'>>",
                "1 L 2\n2 A 4 'a\\\\b'\n2 A 4 'a\\\\b'\n"},
        Dialect{"CountTellsEscapes", "<A[3] 'a\\\\b'>",
                "1 A 3 'a\\b'\nnote 2:1 the declared count shows that backslashes are escapes\n"},
        Dialect{"PlaceHolderWithin", "<A '${LOT}-1'>", "1 A 8 '${LOT}-1'\n"}));

INSTANTIATE_TEST_SUITE_P(
    Faults, SmlItems,
    testing::Values(
        Dialect{"NoCloserBeforeThePoint", "<L <A 'x'>\n",
                "1 L 1\n2 A 1 'x'\nerror 3:1 expected \">\", found \".\"; all items that were open are "
                "closed here\n"},
        Dialect{"NoCloserBeforeTheNextItem", "<L <A 'x' <B 1>>",
                "1 L 2\n2 A 1 'x'\n2 B 1 1\nerror 2:11 expected \">\", found \"<\"\n"},
        Dialect{"OneCloserTooMany", "<A 'x'>>",
                "1 A 1 'x'\nerror 2:8 expected \".\", found one \">\" more than there are items\n"},
        Dialect{"NoClosingQuote", "<A 'x> ",
                "error 2:4 expected a closing ' for the text that begins here\n"},
        Dialect{"NoValue", "<U1 !@#>",
                "error 2:5 expected a whole number from 0 to 255 or \">\", found \"!@#\"\n"},
        Dialect{"FractionInAnInteger", "<I2 1.5>",
                "error 2:5 expected a whole number from -32768 to 32767, found \"1.5\"\n"},
        Dialect{"TruthInANumber", "<F4 T>",
                "error 2:5 expected a number that four bytes hold, found \"T\"\n"},
        Dialect{"CodeThatIsNoNumber", "<A 25x>",
                "error 2:4 expected a text or a character code from 0 to 255, found \"25x\"\n"},
        Dialect{"TextInANumber", "<U1 'x'>",
                "error 2:5 expected a whole number from 0 to 255, found \"'x'\"\n"},
        Dialect{"UnknownType", "<U3 1>", "error 2:2 expected an item type, found \"U3\"\n"},
        Dialect{"BracketNotClosed", "<A[3 'abc'>", "error 2:3 expected a count in brackets, found \"[3\"\n"},
        Dialect{"NoNameBehindTheSign", "<A 'x'> = ", "error 2:11 expected a name after \"=\", found \".\"\n"},
        Dialect{"WordsBehindTheBody", "<A 'x'> !", "error 2:9 expected \".\", found \"!.\"\n"}));

INSTANTIATE_TEST_SUITE_P(
    OutOfRange, SmlItems,
    testing::Values(
        Dialect{"AboveAByte", "<U1 256>",
                "1 U1 1 255\nerror 2:5 expected a whole number from 0 to 255, found \"256\"; it was read "
                "as 255\n"},
        Dialect{"BelowZero", "<U4 -1>",
                "1 U4 1 0\nerror 2:5 expected a whole number of four bytes, not below 0, found \"-1\"; it "
                "was read as 0\n"},
        Dialect{"BelowTheLowest", "<I1 -129>",
                "1 I1 1 -128\nerror 2:5 expected a whole number from -128 to 127, found \"-129\"; it was "
                "read as -128\n"},
        Dialect{"MoreThanSixtyFourBits", "<I8 7 -99999999999999999999>",
                "1 I8 2 7 -9223372036854775808\nerror 2:7 expected a whole number of eight bytes, found "
                "\"-99999999999999999999\"; it was read as -9223372036854775808\n"},
        Dialect{"Hexadecimal", "<U2 0x10000>",
                "1 U2 1 65535\nerror 2:5 expected a whole number from 0 to 65535, found \"0x10000\"; it was "
                "read as 65535\n"},
        Dialect{"Quoted", "<U1 '1 300 2'>",
                "1 U1 3 1 255 2\nerror 2:5 expected a whole number from 0 to 255, found \"'1\"; it was read "
                "as 255\n"},
        Dialect{"SignedBytes", "<B -128 -1>",
                "1 B 2 128 255\nwarning 2:4 -128 was read as the byte 128\nwarning 2:9 -1 was read as the "
                "byte 255\n"},
        Dialect{"BelowASignedByte", "<B -129>",
                "1 B 1 0\nerror 2:4 expected a whole number from 0 to 255, found \"-129\"; it was read as "
                "0\n"},
        Dialect{"FourBytes", "<F4 1e39 -1e39>",
                "1 F4 2 3.4028234E+38 -3.4028234E+38\nerror 2:5 expected a number that four bytes hold, "
                "found \"1e39\"; it was read as 3.4028234E+38\nerror 2:10 expected a number that four bytes "
                "hold, found \"-1e39\"; it was read as -3.4028234E+38\n"},
        Dialect{"EightBytes", "<F8 1e999>",
                "1 F8 1 1.7976931348623157E+308\nerror 2:5 expected a number, found \"1e999\"; it was read "
                "as 1.7976931348623157E+308\n"},
        Dialect{"CharacterCode", "<A 'a' 256 'b'>",
                "1 A 2 'ab'\nerror 2:8 expected a text or a character code from 0 to 255, found \"256\"; it "
                "was left out\n"},
        Dialect{"WithinAListWithoutType", "<\n<U1 300>\n<I2 -40000>\n>",
                "1 L 2\n2 U1 1 255\n2 I2 1 -32768\nerror 3:1 expected an item type; the item was read as a "
                "list\nerror 3:5 expected a whole number from 0 to 255, found \"300\"; it was read as 255\n"
                "error 4:5 expected a whole number from -32768 to 32767, found \"-40000\"; it was read as "
                "-32768\n"}));

TEST(SmlItems, BrokenMessagesLeaveTheOthersAlone) {
    EXPECT_EQ(readDump("S1F1 <U1 2.5>.\nS1F3 <L\n <A 'x'>\n\nName: S1F5 <Q 1>.\nS1F7 W.\n"),
              "S1F3: S1 F3 H<->E\n1 L 1\n2 A 1 'x'\nS1F7: S1 F7 W H<->E\n"
              "error 1:10 expected a whole number from 0 to 255, found \"2.5\"\n"
              "error 5:1 expected \">\", found \"Name:\"; all items that were open are closed here\n"
              "error 5:13 expected an item type, found \"Q\"\n");
}

TEST(SmlItems, TextsAreMeasuredByTheCodePage) {
    EXPECT_EQ(readDump("S1F1 <A[4] '\xec\x9b\xa8\xec\x9d\xb4'>.", 949),
              "S1F1: S1 F1 H<->E\n1 A 4 '\xec\x9b\xa8\xec\x9d\xb4'\n");
}

TEST(SmlItems, ListsLieAtMostAThousandDeep) {
    std::string deepest = "S1F1\n";
    for (int i = 0; i < 1000; ++i)
        deepest += "<L ";
    EXPECT_EQ(readSml(deepest + std::string(1000, '>') + ".", CodePage(1252)).findings.size(), 0u);
    EXPECT_EQ(dump(readSml(deepest + "<L>" + std::string(1000, '>') + ".", CodePage(1252)).findings),
              "error 2:3001 lists are nested more than 1000 levels deep\n");
}

TEST(SmlItems, ColumnsCountCharacters) {
    EXPECT_EQ(readDump("S1F1 <L <A '\xc3\xa9'> <U1 2.5>>."),
              "error 1:21 expected a whole number from 0 to 255, found \"2.5\"\n");
}

} // namespace
} // namespace zb::test
