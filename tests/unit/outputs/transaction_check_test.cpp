#include "outputs/transaction_check.h"
#include "unit/outputs/model_desk.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::ModelDesk;
using Words = std::vector<std::string>;

class TransactionCheck : public testing::Test {
protected:
    TransactionCheck() {
        desk_.app().SECSMessageStore->addMessageText(
            "Hello: S1 F1 H->E\r\n    L 2\r\n        A 6 MDLN 'X'\r\n        U4 1 SVID 1.\r\n");
        desk_.app().SECSMessageStore->addMessageText("World: S1 F3 H->E.\r\n");
    }

    Words find() {
        Words lines;
        for (const auto& finding : checkTransactions(desk_.app().view())) {
            const bool warning = finding.severity == Severity::Warning;
            lines.push_back(finding.place.message +
                            (finding.place.item.empty() ? "" : "/" + finding.place.item) + ": " +
                            (warning ? "warning: " : "") + finding.text);
        }
        return lines;
    }

    ModelDesk desk_;
};

TEST_F(TransactionCheck, FindsNothingInASoundModel) {
    TRMessageRecord& record =
        desk_.add("A", kToEquip, "Hello", "(({MDLN} == 'Gone({X} == 1)') and ({SVID[1;2]} != 7))");
    ModelDesk::addItem(record, "PORT", "SVID[3]", "1");
    ModelDesk::addItem(record, "LOT");
    desk_.add("B", kToHost, "World");
    desk_.add("C", kToHost, "World");
    desk_.addHead("S");
    desk_.addRow("1", "ToEquip", "A");
    desk_.addRow("2", "ToHost", "B");
    EXPECT_EQ(find(), Words{});
}

TEST_F(TransactionCheck, FindsAllThatStopsABuild) {
    desk_.add("A", kToEquip, "Gone");
    desk_.add("B", kToHost, " ");
    desk_.add("C", kToEquip, "NONE");
    desk_.add("D", kToEquip, "Hello");
    desk_.add("E", kToEquip, "HELLO", "NONE");
    desk_.add("F", kToEquip, "Hello", " ");
    desk_.addHead("S");
    desk_.addHead("T");
    EXPECT_EQ(find(), (Words{
                          "A: Select a valid SECSMessage! There is no \"Gone\"",
                          "B: SECSMessage was not selected!",
                          "C: SECSMessage was not selected!",
                          "E: Default TRMessage was duplicated! \"D\" is one for \"HELLO\" already",
                          "F: Default TRMessage was duplicated! \"D\" is one for \"Hello\" already",
                          "S: Not defined SequenceItem!",
                          "T: Not defined SequenceItem!",
                      }));
}

TEST_F(TransactionCheck, FindsNamesOfWhatIsNotThere) {
    TRMessageRecord& record =
        desk_.add("A", kToEquip, "Hello", "(({NAME} == 1) or (({mdln[2]} != 'x') and ({NAME} == 2)))");
    XmlElement condition("Condition");
    XmlElement outer("Statement");
    setElementAttribute(outer, "Condition", "({SVID} == 1)");
    XmlElement inner("Statement");
    setElementAttribute(inner, "Condition", "({ECID} == 1)");
    outer.append(inner);
    condition.append(outer);
    ModelDesk::addItem(record, "PORT", "PORTID[1]").setConditionNode(condition);
    desk_.addHead("S");
    desk_.addRow("1", "ToEquip", "A");
    desk_.addRow("2", "ToHost", "Deleted");
    desk_.addRow("3", "ToHost", "A");
    EXPECT_EQ(find(), (Words{
                          "A: The SECS message has no data item \"NAME\"",
                          "A: The SECS message has no data item \"mdln\"",
                          "A/PORT: The SECS message has no data item \"PORTID\"",
                          "A/PORT: The SECS message has no data item \"ECID\"",
                          "S/2: There is no TR message \"Deleted\"",
                          "S/3: warning: \"A\" goes ToEquip now, and not ToHost",
                      }));
}

TEST_F(TransactionCheck, FindsWhatATmdFileCannotHold) {
    ModelDesk::addItem(desk_.add("1st", kToEquip, "Hello", "({MDLN} == '\x01')"), "a b");
    desk_.add("Nowhere", 7, "World");
    desk_.addRow("1", "ToEquip", "1st");
    desk_.addHead("a:b");
    desk_.addRow("1", "ToEquip", "1st");
    EXPECT_EQ(find(), (Words{
                          "1st: \"1st\" is no name that a TMD file can hold",
                          "1st: There are characters that a TMD file cannot hold",
                          "1st/a b: \"a b\" is no name that a TMD file can hold",
                          "Nowhere: This TR message goes to neither side, so that the TMD file leaves it out",
                          "/1: This row is before the first sequence",
                          "a:b: \"a:b\" is no name that a TMD file can hold",
                      }));
}

TEST_F(TransactionCheck, FindsDataBlocksThatTheDefinitionHasLeftBehind) {
    SECSMessageRecord block;
    ASSERT_EQ(
        block.parseSmd("Hello: S1 F5 H->E\r\n    L 2\r\n        A 6 MDLN 'X'\r\n        U4 1 OLD 1.\r\n",
                       kFormatSmd),
        "");
    desk_.add("A", kToHost, "Hello").setDataBlock(block);
    EXPECT_EQ(find(), (Words{
                          "A: The SECS message has no data item \"OLD\"",
                          "A: warning: The data block is S1F5, and the SECS message S1F1 now",
                      }));
}

TEST_F(TransactionCheck, PassesAProjectWithoutAModel) {
    desk_.app().TRModelStore.reset();
    EXPECT_EQ(find(), Words{});
}

} // namespace
} // namespace zb
