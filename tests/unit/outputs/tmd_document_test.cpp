#include "platform/text_file.h"
#include "platform/xml_document.h"
#include "support/temporary_folder.h"
#include "support/tmd_reader.h"
#include "unit/outputs/model_desk.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace zb {
namespace {

namespace fs = std::filesystem;
using test::ModelDesk;
using test::TmdReader;

const std::string kSchema = ZB_SOURCE_FOLDER "/docs/tmd.rng";

// The document, after another library has accepted it.
std::string validated(const XmlElement& root) {
    std::string bytes = xmlDocument(root);
    const TmdReader reader(bytes);
    EXPECT_EQ(reader.fault(), "") << bytes;
    EXPECT_EQ(reader.schemaFault(kSchema), "") << bytes;
    return bytes;
}

SECSMessageRecord message(const std::string& smd) {
    SECSMessageRecord record;
    EXPECT_EQ(record.parseSmd(smd, kFormatSmd), "");
    return record;
}

void fillWorkedExample(ModelDesk& desk) {
    TRMessageRecord& goOnline = desk.add("GoOnline", kToEquip, "AreYouThere", "({MDLN} == 'HLVFAB')", true);
    ModelDesk::addItem(goOnline, "PORT", "PORTID", "1");
    desk.add("AnyHello", kToEquip, "AreYouThere");
    desk.add("SayHello", kToHost, "OnLineData");
    desk.addHead("Startup");
    desk.addRow("1", "ToEquip", "GoOnline");
    desk.addRow("2", "ToHost", "SayHello");
}

TEST(TmdDocument, OfAnEquipmentHoldsAllFourSections) {
    ModelDesk desk;
    fillWorkedExample(desk);
    EXPECT_EQ(
        validated(desk.compose()),
        R"x(<?xml version="1.0"?><Zelto-ModelingInformaion>)x"
        R"x(<SECSMessages Count="1"><AreYouThere>)x"
        R"x(<Statement Type="if" Condition="({MDLN} == 'HLVFAB')">GoOnline</Statement>)x"
        R"x(<Statement Type="else" Condition="NONE">AnyHello</Statement>)x"
        R"x(</AreYouThere></SECSMessages>)x"
        R"x(<TransactionMessages Type="R" Count="2">)x"
        R"x(<GoOnline SECSMessage="AreYouThere" Report="Y" Condition="({MDLN} == 'HLVFAB')">)x"
        R"x(<TRItems Count="1"><PORT Value="PORTID" ABSValue="1"><Condition/></PORT></TRItems></GoOnline>)x"
        R"x(<AnyHello SECSMessage="AreYouThere" Report="N" Condition=""><TRItems Count="0"/></AnyHello>)x"
        R"x(</TransactionMessages>)x"
        R"x(<TransactionMessages Type="S" Count="1"><SayHello SECSMessage="OnLineData"><DataBlock/>)x"
        R"x(</SayHello></TransactionMessages>)x"
        R"x(<Sequences Count="1"><Startup Count="2">)x"
        R"x(<SEQ TransactionMessage="GoOnline" Owner="HOST"/>)x"
        R"x(<SEQ TransactionMessage="SayHello" Owner="TOOL"/>)x"
        R"x(</Startup></Sequences></Zelto-ModelingInformaion>)x");
}

TEST(TmdDocument, OfAHostSwapsTheRoles) {
    ModelDesk desk(1);
    fillWorkedExample(desk);
    const TmdReader reader(validated(desk.compose()));
    EXPECT_EQ(reader.value("name(//TransactionMessages[@Type='R']/*)"), "SayHello");
    EXPECT_EQ(reader.value("count(//TransactionMessages[@Type='S']/*)"), "2");
    EXPECT_EQ(reader.value("string(//SECSMessages/OnLineData/Statement)"), "SayHello");
    EXPECT_EQ(reader.value("string(//SECSMessages/@Count)"), "1");
}

TEST(TmdDocument, OfNothingHasItsSectionsAndZeros) {
    ModelDesk desk;
    EXPECT_EQ(validated(desk.compose()),
              R"x(<?xml version="1.0"?><Zelto-ModelingInformaion><SECSMessages Count="0"/>)x"
              R"x(<TransactionMessages Type="R" Count="0"/><TransactionMessages Type="S" Count="0"/>)x"
              R"x(<Sequences Count="0"/></Zelto-ModelingInformaion>)x");
}

// The statements of the SECS message M whose received messages have these conditions.
std::string chain(const std::vector<std::string>& conditions) {
    ModelDesk desk;
    for (const std::string& condition : conditions)
        desk.add("T" + std::to_string(desk.app().TRModelStore->TRMessages().size()), kToEquip, "M",
                 condition);
    const XmlElement root = desk.compose();
    validated(root);
    std::string text;
    for (const XmlElement& statement : root.children()[0].children().at(0).children())
        text += getElementAttribute(statement, "Type") + " " + getElementAttribute(statement, "Condition") +
                " " + statement.text() + "; ";
    return text;
}

TEST(TmdDispatch, PutsTheDefaultLast) {
    EXPECT_EQ(chain({"(a)", "(b)", ""}), "if (a) T0; elif (b) T1; else NONE T2; ");
    EXPECT_EQ(chain({"(a)", "", "(b)"}), "if (a) T0; elif (b) T2; else NONE T1; ");
    EXPECT_EQ(chain({"(a)", "NONE", "(b)", "(c)"}), "if (a) T0; elif (b) T2; elif (c) T3; else NONE T1; ");
}

TEST(TmdDispatch, LeavesADefaultInFrontThatCameFirst) {
    EXPECT_EQ(chain({""}), "if NONE T0; ");
    EXPECT_EQ(chain({"", "(b)"}), "if NONE T0; elif (b) T1; ");
    EXPECT_EQ(chain({"NONE", "(b)", "(c)"}), "if NONE T0; elif (b) T1; elif (c) T2; ");
    EXPECT_EQ(chain({"(a)", "  "}), "if (a) T0; else NONE T1; ");
}

// Messages to neither side may add further defaults, since the checks of a build ignore them.
TEST(TmdDispatch, OfSeveralDefaultsOneIsLast) {
    EXPECT_EQ(chain({"(a)", "", "", "(b)", ""}),
              "if (a) T0; else NONE T1; elif (b) T3; else NONE T2; else NONE T4; ");
}

TEST(TmdDispatch, AfterTheLastDefaultTheSchemaTakesNoCondition) {
    ModelDesk desk;
    desk.add("A", kToEquip, "Hello", "(a)");
    desk.add("B", kToEquip, "Hello", "(b)");
    desk.add("C", kToEquip, "Hello");
    XmlElement root = desk.compose();
    auto& chain = root.children()[0].children().at(0).children();
    std::swap(chain.at(1), chain.at(2));
    EXPECT_NE(TmdReader(xmlDocument(root)).schemaFault(kSchema), "");
}

TEST(TmdDispatch, KeepsBlanksOfConditions) {
    EXPECT_EQ(chain({" (a) ", " NONE"}), "if  (a)  T0; elif  NONE T1; ");
}

TEST(TmdDispatch, DistinguishesNamesByCase) {
    ModelDesk desk;
    desk.add("A", kToEquip, "Hello");
    desk.add("B", kToEquip, "hello");
    desk.add("C", kToEquip, "Hello", "(c)");
    const TmdReader reader(validated(desk.compose()));
    EXPECT_EQ(reader.value("string(//SECSMessages/@Count)"), "2");
    EXPECT_EQ(reader.value("count(//SECSMessages/Hello/Statement)"), "2");
    EXPECT_EQ(reader.value("string(//SECSMessages/hello/Statement)"), "B");
}

TEST(TmdDocument, ListsAMessageOfNoDirectionInTheDispatchAlone) {
    ModelDesk desk;
    desk.add("Neither", 3, "Hello");
    const TmdReader reader(validated(desk.compose()));
    EXPECT_EQ(reader.value("string(//SECSMessages/Hello/Statement)"), "Neither");
    EXPECT_EQ(reader.value("count(//TransactionMessages/*)"), "0");
}

TEST(TmdDocument, TakesItemsWithTheirConditions) {
    ModelDesk desk;
    TRMessageRecord& record = desk.add("M", kToEquip, "Hello");
    XmlElement condition("Condition");
    XmlElement statement = createTextElement("Statement", "7");
    setElementAttribute(statement, "Type", "if");
    setElementAttribute(statement, "Condition", "({A} == 1)");
    condition.append(statement);
    ModelDesk::addItem(record, "LOT", "LOTID[1;2]", "").setConditionNode(condition);
    ModelDesk::addItem(record, "CST");
    EXPECT_NE(validated(desk.compose())
                  .find(R"x(<TRItems Count="2"><LOT Value="LOTID[1;2]" ABSValue=""><Condition>)x"
                        R"x(<Statement Type="if" Condition="({A} == 1)">7</Statement></Condition></LOT>)x"
                        R"x(<CST Value="" ABSValue=""><Condition/></CST></TRItems>)x"),
              std::string::npos);
}

TEST(TmdDocument, EndsASectionAtANameThatIsNoXmlName) {
    ModelDesk desk;
    desk.add("First", kToEquip, "Hello");
    desk.add("Say", kToHost, "World");
    TRMessageRecord& third = desk.add("Third", kToEquip, "2nd");
    ModelDesk::addItem(third, "A");
    ModelDesk::addItem(third, "b c");
    ModelDesk::addItem(third, "D");
    desk.add("Last", kToEquip, "Hello", "(l)");
    const TmdReader reader(validated(desk.compose()));
    // the dispatch ends at the SECS message
    EXPECT_EQ(reader.value("string(//SECSMessages/@Count)"), "1");
    EXPECT_EQ(reader.value("count(//SECSMessages/Hello/Statement)"), "1");
    // the items end within their message
    EXPECT_EQ(reader.value("string(//Third/TRItems/@Count)"), "1");
    EXPECT_EQ(reader.value("string(//TransactionMessages[@Type='R']/@Count)"), "3");
}

TEST(TmdDocument, EndsBothSectionsOfMessagesAtAName) {
    ModelDesk desk;
    desk.add("First", kToEquip, "Hello");
    desk.add("a:b", kToEquip, "Hello", "(b)");
    desk.add("Say", kToHost, "World");
    const TmdReader reader(validated(desk.compose()));
    EXPECT_EQ(reader.value("string(//TransactionMessages[@Type='R']/@Count)"), "1");
    EXPECT_EQ(reader.value("string(//TransactionMessages[@Type='S']/@Count)"), "0");
    EXPECT_EQ(reader.value("string(//SECSMessages/Hello/Statement[2])"), "a:b");
}

TEST(TmdDocument, EndsTheSequencesAtAName) {
    ModelDesk desk;
    desk.addHead("Good");
    desk.addRow("1", "", "A");
    desk.addHead("no name");
    desk.addRow("1", "", "B");
    desk.addHead("Late");
    const TmdReader reader(validated(desk.compose()));
    EXPECT_EQ(reader.value("string(//Sequences/@Count)"), "1");
    EXPECT_EQ(reader.value("string(//Sequences/Good/@Count)"), "1");
    EXPECT_EQ(reader.value("string(//SEQ/@Owner)"), "BOTH");
}

TEST(TmdDocument, PassesOverRowsBeforeTheFirstSequence) {
    ModelDesk desk;
    desk.addRow("1", "ToHost", "Lost");
    desk.addHead("One");
    desk.addRow("1", "ToHost", "Kept");
    const TmdReader reader(validated(desk.compose()));
    EXPECT_EQ(reader.value("count(//SEQ)"), "1");
    EXPECT_EQ(reader.value("string(//Sequences/One/SEQ/@TransactionMessage)"), "Kept");
}

TEST(TmdDocument, MayHaveTwoSequencesOfAName) {
    ModelDesk desk;
    desk.addHead("Twice");
    desk.addHead("Twice");
    EXPECT_EQ(TmdReader(validated(desk.compose())).value("count(//Sequences/Twice)"), "2");
}

TEST(TmdDocument, KeepsTextsThatMeanSomethingToXml) {
    ModelDesk desk;
    const std::string odd = "<a> & \"b\" 'c'\r\n\td ]]> \u00FF 한글";
    TRMessageRecord& record = desk.add("한글", kToEquip, "Hello", odd, true);
    XmlElement condition("Condition");
    condition.append(createTextElement("Statement", odd));
    ModelDesk::addItem(record, "V", odd, odd).setConditionNode(condition);
    const TmdReader reader(validated(desk.compose()));
    EXPECT_EQ(reader.value("string(//Hello/Statement/@Condition)"), odd);
    EXPECT_EQ(reader.value("string(//한글/@Condition)"), odd);
    EXPECT_EQ(reader.value("string(//V/@Value)"), odd);
    EXPECT_EQ(reader.value("string(//V/Condition/Statement)"), odd);
}

TEST(TmdDocument, EndsASectionAtATextThatNoDocumentHolds) {
    for (const std::string& text :
         {std::string("a\x01"), std::string("\xED\xA0\x80"), std::string("\xEF\xBF\xBE"), std::string("\xFF"),
          std::string("a\0b", 3)}) {
        ModelDesk desk;
        desk.add("First", kToEquip, "Hello");
        desk.add("Bad", kToEquip, "Hello", text);
        desk.add("Last", kToHost, "World");
        desk.addHead("S");
        desk.addRow("1", "ToHost", text);
        desk.addRow("2", "ToHost", "Last");
        const TmdReader reader(validated(desk.compose()));
        EXPECT_EQ(reader.value("count(//SECSMessages/Hello/Statement)"), "1");
        EXPECT_EQ(reader.value("count(//TransactionMessages/*)"), "1");
        EXPECT_EQ(reader.value("string(//Sequences/S/@Count)"), "1");
    }
}

TEST(TmdDataBlock, ShowsTheMessageAsItIsNested) {
    ModelDesk desk;
    desk.add("Say", kToHost, "Data")
        .setDataBlock(
            message("* About\r\nData: S6 F11 W <NL> H<-E\r\n    L 2\r\n        U4 2 IDS 7 8 [K]\r\n"
                    "        L 1 LIST\r\n            A 9V TEXT 'it <is>'\r\n    BOOLEAN 1 ON True.\r\n"));
    EXPECT_NE(
        validated(desk.compose())
            .find(R"x(<DataBlock Name="Data" Stream="6" Function="11" Wait="Y" Reply="N" NoLogging="Y" )x"
                  R"x(Direction="H&lt;-E" Count="2">)x"
                  R"x(<Item Format="L" Name="" Count="2" Fixed="Y" Key="N">)x"
                  R"x(<Item Format="U4" Name="IDS" Count="2" Fixed="Y" Key="Y" Value="7 8"/>)x"
                  R"x(<Item Format="L" Name="LIST" Count="1" Fixed="Y" Key="N">)x"
                  R"x(<Item Format="A" Name="TEXT" Count="9" Fixed="N" Key="N" Value="it &lt;is>"/>)x"
                  R"x(</Item></Item>)x"
                  R"x(<Item Format="BOOLEAN" Name="ON" Count="1" Fixed="Y" Key="N" Value="True"/>)x"
                  R"x(</DataBlock>)x"),
        std::string::npos)
        << xmlDocument(desk.compose());
}

TEST(TmdDataBlock, KeepsControlCharactersInHexadecimal) {
    ModelDesk desk;
    desk.add("Say", kToHost, "Data").setDataBlock(message("Data: S1 F2 H<-E\r\n    A 2 T 'A\x02'.\r\n"));
    EXPECT_NE(validated(desk.compose()).find(R"x(Key="N" ValueHex="4102"/>)x"), std::string::npos);
}

TEST(TmdDataBlock, OfAnyDepthIsWritten) {
    SECSMessageRecord record;
    std::string body;
    for (int level = 1; level <= 20000; ++level)
        body += std::to_string(level) + " L 1\r\n";
    record.parseTexts("Deep: S1 F2 H<-E", "", body);
    ModelDesk desk;
    desk.add("Say", kToHost, "Deep").setDataBlock(record);
    const std::string bytes = xmlDocument(desk.compose());
    EXPECT_GT(bytes.size(), 20000 * std::string("<Item Format=").size());
}

// A project folder with an old TMD file.
class TmdFile : public testing::Test {
protected:
    TmdFile() {
        fs::create_directories(folder_ / "ZeltoInfo");
        desk_.app().ProjectName = "Line";
        desk_.app().ProjectPath = folder_.path().string();
        path_ = desk_.app().tmdFilePath();
        desk_.add("Say", kToHost, "Data");
    }

    Result<TmdContent> write() { return writeTMD(desk_.app().view(), desk_.app().files, path_); }

    test::TemporaryFolder folder_;
    ModelDesk desk_;
    std::string path_;
};

TEST_F(TmdFile, LiesInTheProjectsFolder) {
    EXPECT_EQ(path_, (folder_ / "ZeltoInfo/Line.tmd").string());
    desk_.addHead("S");
    const auto written = write();
    ASSERT_TRUE(written.ok());
    EXPECT_EQ(written->messages, 1U);
    EXPECT_EQ(written->sequences, 1U);
    EXPECT_EQ(test::readFile(path_), xmlDocument(desk_.compose()));
    EXPECT_EQ(test::namesIn(folder_ / "ZeltoInfo"), std::set<std::string>{"Line.tmd"});
}

TEST_F(TmdFile, TakesThePlaceOfAReadOnlyOne) {
    test::writeFile(path_, "old");
    fs::permissions(path_, fs::perms::owner_read);
    ASSERT_TRUE(write().ok());
    EXPECT_EQ(test::readFile(path_), xmlDocument(desk_.compose()));
}

TEST_F(TmdFile, IsGoneWhenItCannotBeWritten) {
    fs::create_directories(path_ + "/x");
    EXPECT_FALSE(write().ok());
    fs::remove_all(folder_ / "ZeltoInfo");
    EXPECT_FALSE(write().ok());
    EXPECT_FALSE(fs::exists(path_));
    EXPECT_TRUE(desk_.screen().boxes.empty());
}

} // namespace
} // namespace zb
