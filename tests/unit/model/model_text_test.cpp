#include "model/fact_text.h"
#include "model/model_reader.h"
#include "model/model_writer.h"
#include "model/tr_model_store.h"
#include "platform/text_file.h"
#include "project/project_text.h"
#include "unit/model/generated_model.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::described;
using test::ModelMaker;

constexpr std::string_view kBefore = "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n"
                                     "## [EDIT SMD]\r\n* One\r\nA: S1 F1 H->E.\r\n";
constexpr std::string_view kAfter = "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\n";

/// The project file's text as it is read back from the disk.
std::string throughAFile(std::string_view modelText) {
    return decodeProject(encodeUtf16(std::string(kBefore) + std::string(modelText) + std::string(kAfter)))
        .text;
}

void load(TRModelStore& model, std::string_view projectText) {
    readModel(splitProject(projectText).model, model);
}

/// The model's section of a project file.
std::string sectionOf(const TRModelStore& model) {
    return "###[TRANSACTION MODEL] 1\r\n" + composeModel(model);
}

std::string reread(std::string_view projectText) {
    TRModelStore model;
    model.setProjectType(1);
    load(model, projectText);
    return described(model);
}

constexpr std::string_view kModel = "###[TRANSACTION MODEL] 1\r\n"
                                    "## [TR MESSAGE] LotStarted\r\n"
                                    "  SECSMessage EventReport\r\n"
                                    "  Condition CEID = 100 AND RPTID = 1\r\n"
                                    "  Report True\r\n"
                                    "  Direction 1\r\n"
                                    "  TRItem LOT\r\n"
                                    "    Type STRING\r\n"
                                    "    Value LOTID\r\n"
                                    "    StatementText IF PORT = 1\r\n"
                                    "    StatementText   LOT = \"A\"\r\n"
                                    "    Element 1 Condition\r\n"
                                    "    Element 2 Statement Type=\"IF\" Condition=\"PORT = 1\"\r\n"
                                    "    Element 3 Statement \"LOT = \\\"A\\\"\"\r\n"
                                    "  EndTRItem\r\n"
                                    "  TRItem N\r\n"
                                    "    Type NUMERIC\r\n"
                                    "    ABSValue 0\r\n"
                                    "    StatementText NONE\r\n"
                                    "    Element 1 Condition\r\n"
                                    "  EndTRItem\r\n"
                                    "EndTRMessage\r\n"
                                    "## [TR MESSAGE] Start\r\n"
                                    "  SECSMessage RemoteCommand\r\n"
                                    "  Report False\r\n"
                                    "  Direction 2\r\n"
                                    "  DataBlock RemoteCommand: S2 F41 W H->E\r\n"
                                    "    Description Starts a lot\r\n"
                                    "    Item 1 L 2\r\n"
                                    "    Item 2 A 5V RCMD 'START' [K]\r\n"
                                    "    Item 2 L 1V LIST\r\n"
                                    "    Item 3 A 3 CPNAME 'LOT'\r\n"
                                    "EndTRMessage\r\n";

TEST(ModelText, ReadsAndWritesTheSameText) {
    TRModelStore model;
    load(model, throughAFile(kModel));
    ASSERT_EQ(model.TRMessages().size(), 2U);
    const TRMessageRecord& received = *model.TRMessages()[0];
    EXPECT_EQ(received.Condition(), "CEID = 100 AND RPTID = 1");
    EXPECT_TRUE(received.Report());
    EXPECT_FALSE(received.DataBlock());
    const TRItemRecord& lot = *received.TRItems()[0];
    EXPECT_EQ(lot.StatementText(), "IF PORT = 1\r\n  LOT = \"A\"");
    ASSERT_TRUE(lot.ConditionNode());
    const XmlElement& statement = lot.ConditionNode()->children().front();
    EXPECT_EQ(getElementAttribute(statement, "Condition"), "PORT = 1");
    EXPECT_EQ(statement.children().front().text(), "LOT = \"A\"");
    const auto& block = model.TRMessages()[1]->DataBlock();
    ASSERT_TRUE(block);
    EXPECT_EQ(block->getBodyText(),
              "1 L 2\r\n2 A 5V RCMD 'START' [K]\r\n2 L 1V LIST\r\n3 A 3 CPNAME 'LOT'\r\n");
    EXPECT_EQ(block->getDescription(), "Starts a lot");
    EXPECT_TRUE(block->getWait());
    EXPECT_EQ(sectionOf(model), kModel);
}

TEST(ModelText, AnyModelComesBackAsItWas) {
    for (std::uint32_t seed = 0; seed < 400; ++seed) {
        TRModelStore model;
        ModelMaker(seed).fill(model, 4);
        ASSERT_EQ(reread(throughAFile(sectionOf(model))), described(model)) << "seed " << seed;
    }
}

TEST(ModelText, NoLineButItsOwnLooksLikeASection) {
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        TRModelStore model;
        ModelMaker(seed).fill(model, 4);
        const std::string text = sectionOf(model);
        LineReader lines(text);
        for (auto line = lines.next(); line; line = lines.next()) {
            ASSERT_FALSE(line->empty());
            ASSERT_EQ(line->find_first_of("\r\n"), std::string_view::npos) << *line;
            const bool isOwn =
                line->starts_with("###[TRANSACTION MODEL]") || line->starts_with("## [TR MESSAGE]");
            ASSERT_EQ(line->starts_with("#"), isOwn) << *line;
        }
        ASSERT_EQ(parseProject(throughAFile(text)).foreign.text(), "");
    }
}

TEST(ModelText, AnyTextComesBackFromItsLine) {
    ModelMaker maker(7);
    for (int round = 0; round < 2000; ++round) {
        const std::string text = maker.anyText();
        std::string line;
        std::string word;
        std::string quoted;
        appendFactText(line, text);
        appendFactWord(word, text);
        appendQuotedFact(quoted, text);
        ASSERT_EQ(factText(line), text);
        ASSERT_EQ(factText(word), text);
        ASSERT_EQ(factText(std::string_view(quoted).substr(1, quoted.size() - 2)), text);
        ASSERT_EQ(word.find_first_of(" \r\n"), std::string::npos);
    }
}

TEST(ModelText, KeepsWhatIsNoEscape) {
    for (const char* text : {"\\", "\\q", "\\x", "\\x4", "\\xZZ", "a\\"})
        EXPECT_EQ(factText(text), text);
    EXPECT_EQ(factText("\\x41\\x7a\\\\n"), "Az\\n");
}

TEST(ModelText, IgnoresTheSequenceTable) {
    EXPECT_EQ(reread(std::string(kBefore) + std::string(kAfter) + std::string(kModel)), "");
}

TEST(ModelText, ASectionOfANewerVersionGivesWhatIsKnown) {
    std::string newer(kModel);
    newer.replace(newer.find("] 1"), 3, "] 2 later");
    for (const char* mark : {"Report True\r\n", "Type STRING\r\n", "] 2 later\r\n", "L 2\r\n"}) {
        const std::size_t place = newer.find(mark) + std::string_view(mark).size();
        newer.insert(place, "  Colour blue\r\n  Priority 7 Value 3\r\n");
    }
    EXPECT_EQ(reread(newer), reread(kModel));
}

std::vector<std::string> messagesOf(const std::string& projectText) {
    TRModelStore model;
    model.setProjectType(1);
    load(model, projectText);
    std::vector<std::string> messages;
    for (const auto& message : model.TRMessages())
        messages.push_back(described(*message));
    return messages;
}

/// Three messages, the texts of their sections, and what they read as.
struct Gallery {
    explicit Gallery(int messages = 12) {
        TRModelStore model;
        ModelMaker(11).fill(model, messages);
        text = sectionOf(model);
        LineReader reader(text);
        int number = -1;
        while (const auto line = reader.next()) {
            number += line->starts_with("## [TR MESSAGE]") ? 1 : 0;
            lines.emplace_back(*line);
            messageOfLine.push_back(number);
        }
        whole = messagesOf(throughAFile(text));
    }

    /// Whether all messages but that of the line exist.
    void expectOthers(const std::string& damaged, std::size_t line) const {
        const auto found = messagesOf(throughAFile(damaged));
        for (std::size_t number = 0; number < whole.size(); ++number) {
            if (static_cast<int>(number) == messageOfLine[line])
                continue;
            ASSERT_NE(std::find(found.begin(), found.end(), whole[number]), found.end())
                << "message " << number << " is gone with line " << line << ": " << lines[line];
        }
    }

    void expectAll(const std::string& damaged, std::size_t line) const {
        const auto found = messagesOf(throughAFile(damaged));
        ASSERT_EQ(found.size(), whole.size()) << "line " << line << ": " << lines[line];
        for (std::size_t number = 0; number < whole.size(); ++number)
            ASSERT_EQ(found[number], whole[number]) << "line " << line << ": " << lines[line];
    }

    std::string without(std::size_t line, std::string_view instead) const {
        std::string damaged;
        for (std::size_t number = 0; number < lines.size(); ++number) {
            if (number != line)
                damaged.append(lines[number]).append("\r\n");
            else
                damaged += instead;
        }
        return damaged;
    }

    std::string text;
    std::vector<std::string> lines;
    std::vector<int> messageOfLine;
    std::vector<std::string> whole;
};

TEST(DamagedModelText, ALostLineCostsNoOtherMessage) {
    const Gallery gallery;
    ASSERT_EQ(gallery.whole.size(), 12U);
    for (std::size_t line = 0; line < gallery.lines.size(); ++line)
        gallery.expectOthers(gallery.without(line, ""), line);
}

TEST(DamagedModelText, GarbageCostsNoOtherMessage) {
    const Gallery gallery;
    for (const char* garbage : {"\x01\xFF garbage\r\n", "##\r\n", "###[OTHER]\r\n", "\r\n\r\n",
                                "Element 99999999999999999999 \"\r\n", "Item -5 \\n\r\n"}) {
        for (std::size_t line = 0; line < gallery.lines.size(); ++line)
            gallery.expectOthers(gallery.without(line, garbage), line);
    }
}

TEST(DamagedModelText, ALineOfAnotherSectionWithinAMessageChangesNothing) {
    const Gallery gallery;
    for (std::size_t line = 1; line < gallery.lines.size(); ++line) {
        const std::string damaged =
            gallery.without(line, gallery.lines[line] + "\r\n<<<<<<< mine\r\n=======\r\n>>>>>>> theirs\r\n");
        gallery.expectAll(damaged, line);
    }
}

TEST(DamagedModelText, ALineThatOccursTwiceChangesNothing) {
    const Gallery gallery;
    for (std::size_t line = 0; line < gallery.lines.size(); ++line) {
        const std::string& text = gallery.lines[line];
        const std::string_view word = std::string_view(text).substr(text.find_first_not_of(' '));
        if (word.starts_with("Element") || word.starts_with("StatementText") || word.starts_with("Item"))
            continue; // here the same line may be intended twice
        const std::string whole = text + "\r\n";
        gallery.expectAll(gallery.without(line, whole + whole), line);
    }
}

TEST(DamagedModelText, AFileThatEndsAnywhereKeepsTheMessagesBefore) {
    const Gallery gallery(3);
    const std::string bytes = encodeUtf16(std::string(kBefore) + gallery.text);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const auto found = messagesOf(decodeProject(std::string_view(bytes).substr(0, length)).text);
        for (std::size_t number = 0; number + 1 < found.size(); ++number)
            ASSERT_EQ(found[number], gallery.whole[number]) << "cut at byte " << length;
    }
    EXPECT_EQ(messagesOf(decodeProject(bytes).text), gallery.whole);
}

std::string modelOf(std::string_view facts) {
    return "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] M\r\n" + std::string(facts) + "EndTRMessage\r\n";
}

TEST(DamagedModelText, AMessageWithoutItsDirectionStaysInSight) {
    for (const char* facts : {"", "  Direction\r\n", "  Direction x1\r\n", "  Direction 99999999999\r\n"}) {
        for (const int type : {1, 2}) {
            TRModelStore model;
            model.setProjectType(type);
            load(model, modelOf(facts) + "## [TR MESSAGE] S\r\n" + facts + "  DataBlock S1F1\r\n");
            ASSERT_EQ(model.TRMessages().size(), 2U);
            EXPECT_EQ(model.getTRMessage("M")->Direction(), model.ReceivedDirection());
            EXPECT_EQ(model.getTRMessage("S")->Direction(), model.SentDirection());
        }
    }
}

TEST(DamagedModelText, ASecondMessageOfANameFillsTheFirst) {
    TRModelStore model;
    load(model,
         modelOf("  SECSMessage A\r\n  Direction 2\r\n  TRItem LOT\r\n    Value 1\r\n  EndTRItem\r\n") +
             modelOf("  SECSMessage B\r\n  Condition C\r\n  Direction 1\r\n  TRItem LOT\r\n"
                     "    Value 2\r\n    Type STRING\r\n  EndTRItem\r\n  TRItem CST\r\n"));
    ASSERT_EQ(model.TRMessages().size(), 1U);
    const TRMessageRecord& message = *model.TRMessages().front();
    EXPECT_EQ(message.SECSMessage(), "A");
    EXPECT_EQ(message.Condition(), "C");
    EXPECT_EQ(message.Direction(), 2);
    ASSERT_EQ(message.TRItems().size(), 2U);
    EXPECT_EQ(message.TRItems()[0]->Value(), "1");
    EXPECT_EQ(message.TRItems()[0]->Type(), "STRING");
    EXPECT_EQ(message.TRItems()[1]->Name(), "CST");
}

TEST(DamagedModelText, ElementsWithoutTheirParentsHangFromTheDeepestThatIsThere) {
    TRModelStore model;
    load(model, modelOf("  TRItem I\r\n    Element 2 Statement Type=\"IF\"\r\n"
                        "    Element 7 Statement 1=\"2\" \"x\" =\"3\" y Type=\"unclosed \\\"\r\n"
                        "    Element 2 1bad\r\n    Element x Statement\r\n    Element\r\n"));
    const auto& node = model.TRMessages().front()->TRItems().front()->ConditionNode();
    ASSERT_TRUE(node);
    XmlElement expected("Condition");
    XmlElement& outer = expected.append(createElement("Statement"));
    setElementAttribute(outer, "Type", "IF");
    setElementAttribute(outer.append(createTextElement("Statement", "x")), "Type", "unclosed \"");
    EXPECT_TRUE(*node == expected) << described(model);
}

TEST(DamagedModelText, ElementsNestedWithoutEndAreLetGoOfAgain) {
    std::string facts = "  TRItem I\r\n";
    for (int depth = 1; depth <= 100000; ++depth)
        facts += "    Element " + std::to_string(depth) + " E\r\n";
    TRModelStore model;
    load(model, modelOf(facts));
    EXPECT_TRUE(model.TRMessages().front()->TRItems().front()->ConditionNode());
    EXPECT_EQ(reread(sectionOf(model)), described(model));
}

TEST(DamagedModelText, ItemsOfABlockStayWithinTheirMessage) {
    TRModelStore model;
    load(model, modelOf("  Item 1 A 1 'lost'\r\n  DataBlock X: S1 F1 H->E\r\n    Item 0 L 1\r\n"
                        "    Item -3 A 1 'a'\r\n    Item 99999 A 1 'b'\r\n    Item 2 A\\n3 B\r\n"));
    ASSERT_TRUE(model.TRMessages().front()->DataBlock());
    EXPECT_EQ(model.TRMessages().front()->DataBlock()->getBodyText(),
              "1 L 1\r\n1 A 1 'a'\r\n1000 A 1 'b'\r\n");
}

} // namespace
} // namespace zb
