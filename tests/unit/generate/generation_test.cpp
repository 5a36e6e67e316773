#include "generate/generation.h"
#include "project/project_files.h"
#include "project/project_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zb::generate {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string textOf(const Generation& generation, const std::string& path) {
    for (const GeneratedFile& file : generation.files) {
        if (file.path == path)
            return file.text;
    }
    ADD_FAILURE() << "there is no " << path;
    return {};
}

Generation generated(const std::string& project, const std::string& language = "cpp") {
    return generatePlugIn(parseProject(project), "Line", Language(language), CodePage(1252));
}

std::string message(const std::string& text) {
    return "###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n" + text;
}

TEST(Generation, IsTheSameForTheSameProject) {
    const auto file = readProjectFile(ZB_SOURCE_FOLDER "/examples/etcher/Etcher.zbp");
    ASSERT_TRUE(file);
    for (const std::string& language : Language::folders()) {
        const auto first = generatePlugIn(file->project, "Etcher", Language(language), CodePage(1252));
        const auto second = generatePlugIn(file->project, "Etcher", Language(language), CodePage(1252));
        ASSERT_EQ(first.files.size(), second.files.size());
        for (std::size_t index = 0; index < first.files.size(); ++index) {
            EXPECT_EQ(first.files[index].path, second.files[index].path);
            EXPECT_EQ(first.files[index].text, second.files[index].text);
            EXPECT_THAT(first.files[index].text, Not(HasSubstr("${")));
            EXPECT_THAT(first.files[index].text, Not(HasSubstr("//%")));
        }
        EXPECT_EQ(first.notes, std::vector<std::string>());
    }
}

TEST(Generation, AsksTheDefaultLast) {
    const Generation made =
        generated(message("* d\r\nAsk: S1 F1 H->E\r\n    U1 1 N 1.\r\n"
                          "###[TRANSACTION MODEL] 1\r\n"
                          "## [TR MESSAGE] Any\r\n  SECSMessage Ask\r\n  Direction 2\r\nEndTRMessage\r\n"
                          "## [TR MESSAGE] One\r\n  SECSMessage ASK\r\n  Condition ({N} == 1)\r\n"
                          "  Direction 2\r\nEndTRMessage\r\n"));
    const std::string code = textOf(made, "plug_in.cpp");
    EXPECT_LT(code.find("transactions::One::applies"), code.find("transactions::Any::applies"));
    EXPECT_THAT(textOf(made, "transactions/One.h"), HasSubstr("return valueOfN(message).is(\"1\");"));
}

TEST(Generation, AsksNothingAfterTheDefault) {
    const std::string project =
        message("* d\r\nAsk: S1 F1 H->E.\r\n###[TRANSACTION MODEL] 1\r\n"
                "## [TR MESSAGE] One\r\n  SECSMessage Ask\r\n  Direction 2\r\nEndTRMessage\r\n"
                "## [TR MESSAGE] Two\r\n  SECSMessage Ask\r\n  Direction 2\r\nEndTRMessage\r\n");
    const Generation made = generated(project, "java");
    EXPECT_THAT(textOf(made, "line/PlugIn.java"), HasSubstr("return take(new One(header, message));"));
    EXPECT_THAT(textOf(made, "line/PlugIn.java"), Not(HasSubstr("return take(new Two(header, message));")));
    EXPECT_THAT(made.notes, testing::ElementsAre("The transaction message 'Two' never applies: another one "
                                                 "without a condition comes before it"));
}

TEST(Generation, TakesAListOfValuesForAList) {
    const Generation made = generated(message(
        "* d\r\nAsk: S1 F1 H->E\r\n    L 4V ALL\r\n        U1 1 N 1.\r\n###[TRANSACTION MODEL] 1\r\n"
        "## [TR MESSAGE] One\r\n  SECSMessage Ask\r\n  Direction 2\r\n  TRItem A\r\n    Type STRING\r\n"
        "    Value ALL\r\n  EndTRItem\r\nEndTRMessage\r\n"));
    EXPECT_THAT(textOf(made, "transactions/One.h"), HasSubstr("valueOfAll(const messages::Ask&) {\n"
                                                              "        return zelto::Value::ofList();\n"));
}

TEST(Generation, AsksMessagesWithMoreKeysFirst) {
    const Generation made = generated(message("* d\r\nPlain: S1 F1 H->E\r\n    U1 1 N 1.\r\n"
                                              "* d\r\nKeyed: S1 F1 H->E\r\n    U1 1 N 1 [K].\r\n"));
    const std::string code = textOf(made, "plug_in.cpp");
    EXPECT_LT(code.find("messages::Keyed::decode"), code.find("messages::Plain::decode"));
    EXPECT_THAT(textOf(made, "messages/Keyed.h"), HasSubstr("codec.key(self.n, \"1\");"));
}

// A message and its transaction often have one name. Java then needs the package.
TEST(Generation, TellsMessagesFromTransactionsOfTheSameName) {
    const std::string project =
        message("* d\r\nAsk: S1 F1 H->E\r\n    U1 1 N 1.\r\n* d\r\nTell: S1 F3 H->E.\r\n"
                "###[TRANSACTION MODEL] 1\r\n"
                "## [TR MESSAGE] Ask\r\n  SECSMessage Ask\r\n  Direction 2\r\nEndTRMessage\r\n"
                "## [TR MESSAGE] Error\r\n  SECSMessage Tell\r\n  Direction 2\r\nEndTRMessage\r\n");
    const std::string plugIn = textOf(generated(project, "java"), "line/PlugIn.java");
    EXPECT_THAT(plugIn, HasSubstr("void onAsk(line.transactions.Ask received)"));
    EXPECT_THAT(plugIn, HasSubstr("void onError2(Error2 received)"));
    EXPECT_THAT(plugIn, HasSubstr("import line.messages.Tell;\nimport line.transactions.Error2;\n"));
    EXPECT_THAT(plugIn, Not(HasSubstr("import line.messages.Ask;")));
    EXPECT_THAT(textOf(generated(project, "csharp"), "PlugIn.cs"),
                HasSubstr("void OnAsk(Transactions.Ask received)"));
}

TEST(Generation, WritesValuesAsTheLanguageDoes) {
    const std::string project =
        message("* a < b */\r\nAsk: S1 F1 H->E\r\n    L 4\r\n        B 2 BYTES 1 200\r\n"
                "        U8 1 BIG 18446744073709551615\r\n"
                "        I8 1 LEAST -9223372036854775808\r\n        A 4V TEXT '\xC3\xA9'.\r\n");
    const std::string java = textOf(generated(project, "java"), "line/messages/Ask.java");
    EXPECT_THAT(java, HasSubstr("/** S1F1. a &lt; b *&#47; */"));
    EXPECT_THAT(java, HasSubstr("byte[] bytes = new byte[] {(byte) 1, (byte) 200};"));
    EXPECT_THAT(java, HasSubstr("long big = -1L;"));
    EXPECT_THAT(java, HasSubstr("String text = \"\\351\";"));
    const std::string csharp = textOf(generated(project, "csharp"), "Messages/Ask.cs");
    EXPECT_THAT(csharp, HasSubstr("ulong Big { get; set; } = 18446744073709551615UL;"));
    EXPECT_THAT(csharp, HasSubstr("string Text { get; set; } = \"\\u00e9\";"));
    EXPECT_THAT(textOf(generated(project), "messages/Ask.h"),
                HasSubstr("least = std::numeric_limits<std::int64_t>::min();"));
}

TEST(Generation, SaysWhatItLeavesOut) {
    const Generation made =
        generated(message("* d\r\nBad: S1 F1 H->E\r\n    B 2000000000 N.\r\n"
                          "###[TRANSACTION MODEL] 1\r\n"
                          "## [TR MESSAGE] Gone\r\n  SECSMessage Nothing\r\n  Direction 2\r\n"
                          "EndTRMessage\r\n"));
    EXPECT_THAT(made.notes,
                testing::ElementsAre(
                    "The message 'Bad' is left out: the item N has more values than a message can carry",
                    "The transaction message 'Gone' is left out: there is no SECS message 'Nothing'"));
}

TEST(Generation, KeepsTextsOfTheProjectInCommentsAndLiterals) {
    const Generation made =
        generated(message("* x\\\r\nAsk: S1 F1 H->E\r\n    A 40V N '\"); system(\"x'.\r\n"
                          "* */ #error ${type} \xE2\x80\xA8 #error\r\nAsk2: S1 F3 H->E.\r\n"));
    EXPECT_THAT(textOf(made, "messages/Ask.h"), HasSubstr("= \"\\\"); system(\\\"x\";"));
    EXPECT_THAT(textOf(made, "messages/Ask.h"), HasSubstr("/// S1F1. x/\n"));
    EXPECT_THAT(textOf(made, "messages/Ask2.h"), HasSubstr("/// S1F3. */ #error ${type}   #error\n"));
}

TEST(Generation, AnItemHasNoNameThatTheCodeHas) {
    const Generation made = generated(message("* d\r\nAsk: S1 F1 H->E\r\n    L 2\r\n        U1 1 kHead 1\r\n"
                                              "        U1 1 kName 1.\r\n"));
    EXPECT_THAT(textOf(made, "messages/Ask.h"), HasSubstr("std::uint8_t kHead2 = 1;"));
    EXPECT_THAT(textOf(generated(message("* d\r\nCON: S1 F1 H->E.\r\n")), "messages/Con2.h"),
                HasSubstr("struct Con2"));
}

} // namespace
} // namespace zb::generate
