#include "generate/value_literals.h"

#include <gtest/gtest.h>

namespace zb::generate {
namespace {

ItemTree item(const std::string& text) {
    SECSItemRecord record;
    record.parseText(text);
    ItemTree tree;
    tree.type = record.getType();
    tree.kind = itemKind(record.getType());
    tree.count = static_cast<std::size_t>(record.getCount());
    tree.isFixed = record.isFixed();
    tree.value = record.getValue();
    return tree;
}

class CppLiterals : public testing::Test {
protected:
    std::string of(const std::string& text) const { return literals_.initialValue(item(text)); }

    Language language_{"cpp"};
    CodePage codePage_{949};
    ValueLiterals literals_{language_, codePage_};
};

TEST_F(CppLiterals, AreWithinTheRangeOfTheirType) {
    EXPECT_EQ(of("U1 1 N 7"), "7");
    EXPECT_EQ(of("U1 1 N 300"), "255");
    EXPECT_EQ(of("U4 1 N -5"), "0U");
    EXPECT_EQ(of("U8 1 N 18446744073709551615"), "18446744073709551615U");
    EXPECT_EQ(of("I2 1 N -40000"), "-32768");
    EXPECT_EQ(of("I8 1 N 9007199254740993"), "9007199254740993");
    EXPECT_EQ(of("U2 1 N 2.6"), "3");
    EXPECT_EQ(of("U2 1 N"), "0");
    EXPECT_EQ(of("B 1 N 1e3"), "255");
}

TEST_F(CppLiterals, KeepFloatsExact) {
    EXPECT_EQ(of("F4 1 N 0.8"), "0.8F");
    EXPECT_EQ(of("F8 1 N 2.5E-06"), "2.5e-06");
    EXPECT_EQ(of("F8 1 N 40"), "40.0");
    EXPECT_EQ(of("F4 1 N 1e300"), "3.4028235e+38F");
}

TEST_F(CppLiterals, HaveTheCountOfTheDefinition) {
    EXPECT_EQ(of("U2 3 N 1 2"), "{1, 2, 0}");
    EXPECT_EQ(of("U2 2 N 1 2 3"), "{1, 2}");
    EXPECT_EQ(of("U4 64V N 3011 3012"), "{3011U, 3012U}");
    EXPECT_EQ(of("B 100000 N"), "std::vector<std::uint8_t>(100000)");
    EXPECT_EQ(of("B 100000 N 1"), "std::vector<std::uint8_t>(100000)");
    EXPECT_EQ(of("BOOLEAN 2 N True 0"), "{true, false}");
    EXPECT_EQ(of("A 6 N 'AB'"), "\"AB    \"");
    EXPECT_EQ(of("A 2 N 'ABCD'"), "\"AB\"");
}

TEST_F(CppLiterals, KeepTextsInsideTheirQuotes) {
    EXPECT_EQ(of("A 20V N 'a\"b\\c\n'"), "\"a\\\"b\\\\c\\012\"");
    EXPECT_EQ(of("A 20V N '\xEA\xB0\x80'"), "\"\\260\\241\"");
    EXPECT_EQ(literals_.shownText("\xEA\xB0\x80"), "\"\\352\\260\\200\"");
    EXPECT_EQ(literals_.comparedText("\xF0\x9F\x98\x80"), "zelto::kNoText");
}

TEST(CommentText, StaysOnItsLine) {
    EXPECT_EQ(commentText("one\r\ntwo\\"), "one  two/");
    EXPECT_EQ(commentText("a\xE2\x80\xA8"
                          "b\xC2\x85"
                          "c\xE2\x80\xAE"
                          "d"),
              "a b c d");
    EXPECT_EQ(commentText("\\u000a System.exit(1);"), "/u000a System.exit(1);");
    EXPECT_EQ(commentText("\xEC\x97\x90\xEC\xB9\xAD"), "\xEC\x97\x90\xEC\xB9\xAD");
}

TEST(JavaLiterals, OfLongNamesHaveParts) {
    const Language language("java");
    const CodePage codePage(949);
    const ValueLiterals literals(language, codePage);
    const std::string part(16000, 'x');
    EXPECT_EQ(literals.shownText(part), "\"" + part + "\"");
    EXPECT_EQ(literals.shownText(part + "y"), "\"" + part + "\".concat(\"y\")");
    EXPECT_EQ(literals.shownText(part + part + "\xC3\xA9"),
              "\"" + part + "\".concat(\"" + part + "\").concat(\"\\u00e9\")");
}

TEST_F(CppLiterals, BeginNoTrigraphs) {
    EXPECT_EQ(literals_.shownText("what?\?/"), "\"what?\\077/\"");
    EXPECT_EQ(literals_.shownText("???"), "\"?\\077?\"");
    EXPECT_EQ(literals_.comment("what?\?/"), "what? ?/");
}

} // namespace
} // namespace zb::generate
