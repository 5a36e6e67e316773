#include "unit/editor/editor_desk.h"

#include <ostream>

namespace zb {
namespace {

constexpr const char* kBadName = "You must fill a messge name without symbolic character such as \":\"";
constexpr const char* kStreamA = "You must insert a positive number less than 128 in the stream";
constexpr const char* kStreamJ = "You must insert j positive number less than 128 in the stream";
constexpr const char* kFunctionA = "You must insert a positive number less than 255 in the function";
constexpr const char* kFunctionJ = "You must insert j positive number less than 255 in the function";

class MessagePaneTest : public EditorDesk {
public:
    void fill(std::string_view name, std::string_view stream, std::string_view function) {
        paste(window.txtStream, stream);
        paste(window.txtFunction, function);
        paste(window.txtMsgName, name);
    }
};

TEST_F(MessagePaneTest, AddNamesAMessageAndItsReplyByStreamAndFunction) {
    type(window.txtStream, "6");
    type(window.txtFunction, "11");
    type(window.txtDescription, "Event");
    click(window.chkWait);
    click(window.cmdMsgAdd);
    EXPECT_EQ(treeOutline(), (Lines{"", "Event", "S6F11: S6 F11 W H->E", "", "", "S6F12: S6 F12 H<-E"}));
    EXPECT_EQ(window.cboSECSMessage.entries(), (Lines{"S6F11", "S6F12"}));
    EXPECT_EQ(window.txtMsgName.text(), "S6F11");
    EXPECT_EQ(tree().selected(), nullptr);
    const Node* message = tree().find("s6f11");
    ASSERT_NE(message, nullptr);
    EXPECT_TRUE(message->expanded());
    EXPECT_TRUE(message->previous()->bold());
    EXPECT_EQ(message->foreColor(), kEditorForeColor);
    expectNoBox();
}

TEST_F(MessagePaneTest, AddWritesAllMarksIntoTheTextInTheirOrder) {
    fill("Hello", "1", "1");
    for (CheckBox* check : {&window.chkNoLogging, &window.chkReply, &window.chkWait})
        click(*check);
    click(window.optEqp);
    click(window.cmdMsgAdd);
    EXPECT_EQ(tree().find("Hello")->text(), "Hello: S1 F1 W <R> <NL> H<-E");
    EXPECT_EQ(tree().find("S1F2")->text(), "S1F2: S1 F2 H->E");
}

TEST_F(MessagePaneTest, AddTurnsBothOnWhenNoDirectionIsOn) {
    window.optHost.setOn(false);
    fill("", "1", "1");
    click(window.cmdMsgAdd);
    EXPECT_TRUE(window.optBoth.on());
    EXPECT_EQ(tree().find("S1F1")->text(), "S1F1: S1 F1 H<->E");
    EXPECT_EQ(tree().find("S1F2")->text(), "S1F2: S1 F2 H<->E");
}

TEST_F(MessagePaneTest, AddOfAnEvenFunctionMakesNoReply) {
    fill("", "1", "2");
    click(window.cmdMsgAdd);
    EXPECT_EQ(treeOutline(), (Lines{"", "", "S1F2: S1 F2 H->E"}));
}

TEST_F(MessagePaneTest, AddLeavesAReplyWithoutAPrimary) {
    addMessage("S1F2: S1 F2 <NL> H<->E");
    fill("", "1", "1");
    click(window.cmdMsgAdd);
    EXPECT_EQ(treeOutline(), (Lines{"", "", "S1F2: S1 F2 <NL> H<->E", "", "", "S1F1: S1 F1 H->E"}));
    expectNoBox();
}

TEST_F(MessagePaneTest, AddTakesStreamAndFunctionAsTheyStand) {
    fill("", " 01", "003 ");
    click(window.cmdMsgAdd);
    EXPECT_EQ(treeOutline(), (Lines{"", "", "S01F003: S 01 F003  H->E", "", "", "S01F4: S 01 F4 H<-E"}));
}

TEST_F(MessagePaneTest, AddOfFunction255MakesAReply256) {
    fill("", "128", "255");
    click(window.cmdMsgAdd);
    EXPECT_EQ(treeOutline(), (Lines{"", "", "S128F255: S128 F255 H->E", "", "", "S128F256: S128 F256 H<-E"}));
    expectNoBox();
}

TEST_F(MessagePaneTest, AddRefusesANameInUseWhateverItsCase) {
    addMessage("S1F1: S1 F1 H->E");
    fill("s1f1", "1", "3");
    click(window.cmdMsgAdd);
    expectBox("s1f1 already exits.", BoxIcon::Critical);
    EXPECT_TRUE(window.txtMsgName.focused());
    EXPECT_EQ(tree().count(), 3U);
}

struct Refusal {
    std::string name;
    std::string stream;
    std::string function;
    std::string box;
    std::string focus;
};

std::ostream& operator<<(std::ostream& out, const Refusal& row) {
    return out << '<' << row.name << "> S<" << row.stream << "> F<" << row.function << '>';
}

class AddRefusal : public MessagePaneTest, public testing::WithParamInterface<Refusal> {};

TEST_P(AddRefusal, SaysWhyAndMovesTheFocus) {
    fill(GetParam().name, GetParam().stream, GetParam().function);
    click(window.cmdMsgAdd);
    expectBox(GetParam().box);
    expectNoBox();
    EXPECT_TRUE(window.find(GetParam().focus)->focused());
    EXPECT_TRUE(tree().empty());
    EXPECT_TRUE(window.cboSECSMessage.entries().empty());
}

INSTANTIATE_TEST_SUITE_P(Table, AddRefusal,
                         testing::Values(Refusal{"a:b", "", "", kBadName, "txtMsgName"},
                                         Refusal{"1234", "1", "1", kBadName, "txtMsgName"},
                                         Refusal{"-1.5e3", "1", "1", kBadName, "txtMsgName"},
                                         Refusal{"", "", "1", kStreamA, "txtStream"},
                                         Refusal{"", "x", "1", kStreamA, "txtStream"},
                                         Refusal{"", "1x", "1", kStreamA, "txtStream"},
                                         Refusal{"", "-1", "1", kStreamA, "txtStream"},
                                         Refusal{"", "129", "256", kStreamA, "txtStream"},
                                         Refusal{"", "1", "", kFunctionA, "txtFunction"},
                                         Refusal{"", "1", "-1", kFunctionA, "txtFunction"},
                                         Refusal{"1A", "128", "256", kFunctionA, "txtFunction"}));

TEST_F(MessagePaneTest, AddTakesANameThatBeginsWithADigit) {
    fill("1A", "1", "2");
    click(window.cmdMsgAdd);
    EXPECT_NE(tree().find("1A"), nullptr);
    expectNoBox();
}

TEST_F(MessagePaneTest, ChangeWritesTheFieldsFromAnyRootNodeOfTheMessage) {
    for (const int steps : {0, -1, -2}) {
        window.newEditorProject();
        Node& message = addMessage("A: S1 F1 W H->E", {"U2 1 x 0"}, "old");
        Node* clicked = &message;
        for (int i = 0; i > steps; --i)
            clicked = clicked->previous();
        clickNode(clicked);
        paste(window.txtFunction, "3");
        paste(window.txtMsgName, "B");
        paste(window.txtDescription, "new");
        click(window.optBoth);
        click(window.chkNoLogging);
        click(window.cmdMsgChange);
        EXPECT_EQ(treeOutline(), (Lines{"", "new", "B: S1 F3 W <NL> H<->E", "  U2 1 x 0"})) << steps;
        EXPECT_EQ(tree().find("B"), &message);
        EXPECT_EQ(tree().find("A"), nullptr);
        EXPECT_EQ(window.cboSECSMessage.entries(), Lines{"B"});
        expectNoBox();
    }
}

TEST_F(MessagePaneTest, ChangeTakesANewCaseOfItsOwnName) {
    Node& message = addMessage("S1F1: S1 F1 H->E");
    clickNode(&message);
    paste(window.txtMsgName, "s1f1");
    click(window.cmdMsgChange);
    EXPECT_EQ(message.text(), "s1f1: S1 F1 H->E");
    EXPECT_EQ(message.key(), "s1f1");
    EXPECT_EQ(window.cboSECSMessage.entries(), Lines{"s1f1"});
    EXPECT_EQ(window.cboSECSMessage.text(), "s1f1");
    expectNoBox();
}

TEST_F(MessagePaneTest, ChangeRefusesAnotherMessagesName) {
    addMessage("A: S1 F1 H->E");
    Node& other = addMessage("B: S1 F3 H->E");
    clickNode(&other);
    paste(window.txtMsgName, "a");
    click(window.cmdMsgChange);
    expectBox("a already exists.", BoxIcon::Critical);
    EXPECT_TRUE(window.txtMsgName.focused());
    EXPECT_EQ(treeOutline(), (Lines{"", "", "A: S1 F1 H->E", "", "", "B: S1 F3 H->E"}));
    EXPECT_EQ(window.cboSECSMessage.entries(), (Lines{"A", "B"}));
}

class SilentName : public MessagePaneTest, public testing::WithParamInterface<std::string> {};

TEST_P(SilentName, ComesBackAtChange) {
    Node& message = addMessage("A: S1 F1 H->E");
    clickNode(&message);
    paste(window.txtMsgName, GetParam());
    click(window.cmdMsgChange);
    EXPECT_EQ(window.txtMsgName.text(), "A");
    EXPECT_EQ(message.text(), "A: S1 F1 H->E");
    expectNoBox();
}

INSTANTIATE_TEST_SUITE_P(Names, SilentName, testing::Values("", "x:y", "1234"));

TEST_F(MessagePaneTest, ChangeSaysJ) {
    click(window.cmdMsgChange);
    expectBox(kStreamJ);
    EXPECT_TRUE(window.txtStream.focused());
    paste(window.txtStream, "1");
    click(window.cmdMsgChange);
    expectBox(kFunctionJ);
    EXPECT_TRUE(window.txtFunction.focused());
    paste(window.txtFunction, "1");
    click(window.cmdMsgChange);
    expectBox("No selected message.");
}

TEST_F(MessagePaneTest, ChangeTakesNoItemForAMessage) {
    Node& message = addMessage("A: S1 F1 H->E", {"U2 1 x 0", "U2 1 y 0"});
    clickNode(&message);
    tree().select(message.child());
    click(window.cmdMsgChange);
    expectBox("No selected message.");
    EXPECT_EQ(treeOutline(), (Lines{"", "", "A: S1 F1 H->E", "  U2 1 x 0", "  U2 1 y 0"}));
}

TEST_F(MessagePaneTest, TypingAnotherNumberClearsNameAndDescription) {
    Node& message = addMessage("A: S1 F1 H->E", {}, "text");
    clickNode(&message);
    EXPECT_EQ(window.txtMsgName.text(), "A");
    type(window.txtStream, "2");
    EXPECT_EQ(window.txtStream.text(), "12");
    EXPECT_EQ(window.txtMsgName.text(), "");
    EXPECT_EQ(window.txtDescription.text(), "");
    key(window.txtStream, kKeyBackspace);
    EXPECT_EQ(window.txtMsgName.text(), "A");
    EXPECT_EQ(window.txtDescription.text(), "text");
}

TEST_F(MessagePaneTest, TypingPastTheBoundBringsTheOldNumberBack) {
    Node& message = addMessage("A: S12 F25 H->E", {}, "text");
    clickNode(&message);
    type(window.txtStream, "9");
    expectBox(kStreamA);
    EXPECT_EQ(window.txtStream.text(), "12");
    EXPECT_EQ(window.txtMsgName.text(), "A");
    type(window.txtFunction, "6");
    expectBox(kFunctionA);
    EXPECT_EQ(window.txtFunction.text(), "25");
    paste(window.txtFunction, "255");
    paste(window.txtStream, "128");
    expectNoBox();
    paste(window.txtStream, "-1");
    expectBox(kStreamA);
    EXPECT_EQ(window.txtStream.text(), "12");
    expectNoBox();
}

TEST_F(MessagePaneTest, TypingAnEvenFunctionTurnsWaitReplyAndLoggingOff) {
    Node& message = addMessage("A: S1 F1 W <R> <NL> H->E");
    clickNode(&message);
    paste(window.txtFunction, "2");
    for (const CheckBox* check : {&window.chkWait, &window.chkReply, &window.chkNoLogging})
        EXPECT_FALSE(check->checked()) << check->name();
    EXPECT_FALSE(window.chkWait.enabled());
    EXPECT_FALSE(window.chkReply.enabled());
    EXPECT_TRUE(window.chkNoLogging.enabled());
    paste(window.txtFunction, "3");
    EXPECT_TRUE(window.chkWait.enabled());
    EXPECT_TRUE(window.chkReply.enabled());
    EXPECT_FALSE(window.chkWait.checked());
    paste(window.txtFunction, "");
    EXPECT_FALSE(window.chkWait.enabled());
    expectNoBox();
}

TEST_F(MessagePaneTest, TypingChangesNothingElseWithoutASelectedRootNode) {
    type(window.txtFunction, "2");
    EXPECT_TRUE(window.chkWait.enabled());
    type(window.txtFunction, "22");
    EXPECT_EQ(window.txtFunction.text(), "222");
    Node& message = addMessage("A: S1 F1 H->E", {"U2 1 x 0"});
    tree().select(message.child());
    paste(window.txtStream, "300");
    EXPECT_EQ(window.txtStream.text(), "300");
    expectNoBox();
}

TEST_F(MessagePaneTest, FieldsTakeOnlyTheKeysOfTheirFilter) {
    type(window.txtStream, "1a2-");
    EXPECT_EQ(window.txtStream.text(), "12");
    EXPECT_TRUE(window.txtStream.locked());
    key(window.txtStream, 49, kShiftKey);
    EXPECT_EQ(window.txtStream.text(), "12");
    key(window.txtStream, 51);
    EXPECT_EQ(window.txtStream.text(), "123");
    key(window.txtStream, 49, kShiftKey);
    EXPECT_EQ(window.txtStream.text(), "123!");
    type(window.txtMsgName, "1S_-1 :x");
    EXPECT_EQ(window.txtMsgName.text(), "S_1x");
    type(window.txtDescription, "a:b*c; 8");
    EXPECT_EQ(window.txtDescription.text(), "abc; 8");
}

TEST_F(MessagePaneTest, PastedTextPassesNoFilter) {
    paste(window.txtDescription, "a:b*");
    EXPECT_EQ(window.txtDescription.text(), "a:b*");
    paste(window.txtMsgName, "1 A");
    EXPECT_EQ(window.txtMsgName.text(), "1 A");
}

TEST_F(MessagePaneTest, NameAndDescriptionAreSelectedWhenTheyTakeTheFocus) {
    paste(window.txtMsgName, "Name");
    paste(window.txtDescription, "Text");
    EXPECT_EQ(hands.focus(window.txtMsgName), "");
    EXPECT_EQ(window.txtMsgName.selectedText(), "Name");
    type(window.txtDescription, "x");
    EXPECT_EQ(window.txtDescription.text(), "x");
}

TEST_F(MessagePaneTest, ComboSelectsTheMessageThatReadsExactlySo) {
    Node& first = addMessage("A: S1 F1 H->E");
    Node& second = addMessage("B: S1 F3 H->E");
    clickNode(&first);
    EXPECT_EQ(hands.choose(window.cboSECSMessage, "B"), "");
    EXPECT_EQ(tree().selected(), &second);
    EXPECT_EQ(window.txtMsgName.text(), "A"); // the panes are out of date until the next click
    window.InsertCbo("a");
    EXPECT_EQ(hands.choose(window.cboSECSMessage, "a"), "");
    EXPECT_EQ(tree().selected(), &second);
}

TEST_F(MessagePaneTest, FirstSelectNeedsMoreThanOneMessage) {
    window.cboFirstSelect();
    addMessage("A: S1 F1 H->E");
    window.cboFirstSelect();
    EXPECT_EQ(tree().selected(), nullptr);
    EXPECT_EQ(window.cboSECSMessage.text(), "");
    addMessage("B: S1 F3 H->E");
    window.cboFirstSelect();
    EXPECT_EQ(tree().selected(), tree().find("A"));
    EXPECT_EQ(window.cboSECSMessage.text(), "A");
}

TEST_F(MessagePaneTest, SelectWithKeyTakesTheExactNameAlone) {
    addMessage("A: S1 F1 H->E");
    window.cboSelectWithKey("a");
    EXPECT_EQ(window.cboSECSMessage.text(), "");
    window.cboSelectWithKey("A");
    EXPECT_EQ(window.cboSECSMessage.text(), "A");
    EXPECT_EQ(tree().selected(), tree().find("A"));
}

TEST_F(MessagePaneTest, InitMsgClearsAllAndPointsToTheEquipment) {
    fill("A", "1", "2");
    paste(window.txtDescription, "text");
    for (CheckBox* check : {&window.chkWait, &window.chkReply, &window.chkNoLogging}) {
        click(*check);
        check->setEnabled(false);
    }
    click(window.optEqp);
    window.InitMsg();
    for (const TextField* field :
         {&window.txtStream, &window.txtFunction, &window.txtMsgName, &window.txtDescription})
        EXPECT_EQ(field->text(), "") << field->name();
    for (const CheckBox* check : {&window.chkWait, &window.chkReply, &window.chkNoLogging}) {
        EXPECT_FALSE(check->checked()) << check->name();
        EXPECT_TRUE(check->enabled()) << check->name();
    }
    EXPECT_TRUE(window.optHost.on());
}

} // namespace
} // namespace zb
