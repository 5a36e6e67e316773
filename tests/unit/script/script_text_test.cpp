#include "script/matching.h"
#include "script/script_text.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zb {
namespace {

BlockKind kindOf(std::string_view name) {
    if (name == "block")
        return BlockKind::Lines;
    return name == "during" ? BlockKind::Commands : BlockKind::None;
}

std::vector<ScriptCommand> parse(std::string_view text) {
    return parseScript(text, kindOf);
}

std::vector<std::string> blockOf(std::string_view text) {
    std::vector<std::string> lines;
    const std::string script = "block\n" + std::string(text) + "end\n";
    const auto commands = parse(script);
    for (const BlockLine& line : commands.at(0).lines)
        lines.push_back(line.text);
    return lines;
}

using Lines = std::vector<std::string>;

TEST(ScriptText, PassesOverCommentsBlankLinesAndLeadingBlanks) {
    const auto script = parse("\xEF\xBB\xBF# a comment\r\n\r\n  start  now\r\n\t# more\nclose it");
    ASSERT_EQ(script.size(), 2U);
    EXPECT_EQ(script[0].words, (Lines{"start", "now"}));
    EXPECT_EQ(script[0].line, 3U);
    EXPECT_EQ(script[1].words, (Lines{"close", "it"}));
    EXPECT_EQ(script[1].line, 5U);
}

TEST(ScriptText, ReadsQuotedWordsAsJsonStrings) {
    EXPECT_EQ(parse(R"(type A "a b" "" "x\r\ny\u00e9\"" c"d #no)").at(0).words,
              (Lines{"type", "A", "a b", "", "x\r\ny\xC3\xA9\"", "c\"d", "#no"}));
}

TEST(ScriptText, ReportsBrokenStringsWhenTheLineIsReached) {
    const auto script = parse("start\ntype \"open\nend");
    ASSERT_EQ(script.size(), 3U);
    EXPECT_EQ(script[0].fault, "");
    EXPECT_EQ(script[1].fault, "expected a JSON string, found \"open");
    EXPECT_EQ(parse(R"(a "b"c)").at(0).fault, "expected a blank after the string, found c");
    EXPECT_EQ(parse("a \"\\q\"").at(0).fault, "expected a JSON string, found \"\\q\"");
    EXPECT_EQ(parse("a \xFF").at(0).fault, "expected text in UTF-8, found other bytes");
}

TEST(ScriptText, TakesBlocksRawWithoutTheirCommonIndentation) {
    EXPECT_EQ(blockOf("    a  \n      b ${WORK} \"c\"\n\n    # d\n"),
              (Lines{"a  ", "  b ${WORK} \"c\"", "", "# d"}));
    EXPECT_EQ(blockOf("  -\n  a\n  \"end\"\n  \"  b\\t\"\n"), (Lines{"", "a", "end", "  b\t"}));
    EXPECT_EQ(blockOf(""), Lines{});
    EXPECT_EQ(blockOf("   \n\n"), (Lines{"", ""}));
    EXPECT_EQ(blockOf("  a\n     \n"), (Lines{"a", "   "}));
}

TEST(ScriptText, ReportsBlocksWithoutEnd) {
    EXPECT_EQ(parse("block\n a\n").at(0).fault,
              "expected a line \"end\" after block, found the end of the script");
    EXPECT_EQ(parse("during A\n a\n").at(0).fault,
              "expected a line \"end\" after during, found the end of the script");
}

TEST(ScriptText, NestsCommandsInDuring) {
    const auto script = parse("during A\n  # no\n  block\n    x\n  end\n  during B\n    c\n  end\nend\nd\n");
    ASSERT_EQ(script.size(), 2U);
    ASSERT_EQ(script[0].commands.size(), 2U);
    EXPECT_EQ(script[0].commands[0].lines.at(0).text, "x");
    EXPECT_EQ(script[0].commands[1].commands.at(0).words, Lines{"c"});
    EXPECT_EQ(script[0].endLine, 9U);
    EXPECT_EQ(script[1].line, 10U);
}

TEST(ScriptText, StopsAtHopelessNesting) {
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += "during A\n";
    EXPECT_FALSE(parse(text).empty());
}

std::vector<BlockLine> lines(const Lines& texts) {
    std::vector<BlockLine> result;
    for (const std::string& text : texts)
        result.push_back({text, false});
    return result;
}

TEST(Matching, ComparesLinesApartFromBlanksAtTheirEnds) {
    EXPECT_TRUE(matchLines(lines({"a ", "b"}), {"a", "b  "}));
    EXPECT_TRUE(matchLines({}, {}));
    EXPECT_FALSE(matchLines(lines({"a"}), {" a"}));
    EXPECT_FALSE(matchLines(lines({"a"}), {"a", "b"}));
    EXPECT_FALSE(matchLines(lines({"a", "b"}), {"a"}));
    EXPECT_FALSE(matchLines(lines({"a"}), {"A"}));
}

TEST(Matching, TakesDotsForAnyLines) {
    EXPECT_TRUE(matchLines(lines({"..."}), {}));
    EXPECT_TRUE(matchLines(lines({"...", "c"}), {"a", "c", "b", "c"}));
    EXPECT_TRUE(matchLines(lines({"a", "...", "c", "...", "e"}), {"a", "b", "c", "e"}));
    EXPECT_TRUE(matchLines(lines({"...", "a", "b", "..."}), {"a", "a", "b"}));
    EXPECT_FALSE(matchLines(lines({"...", "c"}), {"c", "d"}));
    EXPECT_FALSE(matchLines({{"...", true}}, {"a"}));
    EXPECT_TRUE(matchLines({{"...", true}}, {"..."}));
}

TEST(Matching, TakesDotsForAnyRunInBoxes) {
    EXPECT_TRUE(matchText("abc", "abc"));
    EXPECT_TRUE(matchText("...", ""));
    EXPECT_TRUE(matchText("a...c", "ac"));
    EXPECT_TRUE(matchText("a...b...c", "a\r\nb b c"));
    EXPECT_TRUE(matchText("wait...", "wait..."));
    EXPECT_FALSE(matchText("a...a", "a"));
    EXPECT_FALSE(matchText("", "a"));
    EXPECT_FALSE(matchText("a...b...b", "ab"));
}

} // namespace
} // namespace zb
