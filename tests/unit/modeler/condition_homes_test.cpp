#include "controls/desktop.h"
#include "controls/user_hands.h"
#include "messages/message_store.h"
#include "modeler/frm_tr_item.h"
#include "modeler/frm_tr_message.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "project/module_state.h"
#include "support/silent_screen.h"
#include "unit/modeler/noted_views.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zb {
namespace {

/// Both dialogs that build conditions, each open for the message `Data`.
class ConditionHomes : public testing::Test {
public:
    ConditionHomes() {
        define("U2 1 N 0");
        state.TRModelStore = std::make_unique<TRModelStore>();
        auto record = std::make_unique<TRMessageRecord>();
        record->setName("Tell");
        record->setSECSMessage("Data");
        record->setDirection(kToHost);
        state.TRModelStore->addTRMessage(std::move(record));
        screen.modal = [this](Window& window) {
            asked = static_cast<frmArrayInfo&>(window).txtItem.text();
            window.hide();
        };
    }

    void openMessage() {
        messages.addRcvTRMessage();
        EXPECT_EQ(hands.choose(messages.cmbSECSMessage, "Data"), "");
    }
    void openItem() { items.addTRItem("Tell"); }
    /// Creates the messages again, with that item below a list without a count.
    void define(const std::string& item) {
        state.SECSMessageStore = std::make_unique<SECSMessageStore>();
        state.SECSMessageStore->addMessageText("* Tell\r\nData: S6 F11 H<-E\r\n    " + list + "\r\n        " +
                                               item + ".\r\n");
    }
    void add(ConditionControls& builder, const char* value) {
        EXPECT_EQ(hands.choose(builder.cmbDataItem, "N"), "");
        EXPECT_EQ(hands.paste(builder.txtDataItemValue, value), "");
        EXPECT_EQ(hands.click(Target::whole(builder.cmdAddCondition)), "");
    }
    void press(Toolbar& bar, std::string_view key) {
        Target target = Target::whole(bar);
        target.button = &bar.button(key);
        EXPECT_EQ(hands.click(target), "");
    }

    std::string list = "L 1 LIST";
    std::string asked;
    test::SilentScreen screen;
    Desktop desktop{screen};
    SettingsStore settings = SettingsStore::inMemory();
    SystemFileLayer files;
    ModuleState state{settings, files};
    test::NotedViews views;
    frmTRMessage messages{desktop, state, views};
    frmTRItem items{desktop, state, views};
    UserHands hands{desktop};
};

TEST_F(ConditionHomes, LookForTheIndexInTheMessageOfNowOrOfTheOpening) {
    openMessage();
    list = "L 1V LIST";
    define("U2 1 N 0");
    EXPECT_EQ(hands.choose(messages.builder.cmbDataItem, "N"), "");
    EXPECT_EQ(asked, "N");
    EXPECT_EQ(messages.builder.cmbDataItem.text(), "");

    asked.clear();
    list = "L 1 LIST";
    define("U2 1 N 0");
    openItem();
    list = "L 1V LIST";
    define("U2 1 N 0");
    EXPECT_EQ(hands.choose(items.builder.cmbDataItem, "N"), "");
    EXPECT_EQ(asked, "");
    EXPECT_EQ(items.builder.cmbDataItem.text(), "N");
}

TEST_F(ConditionHomes, TakeTheTypesFromTheMessageThatWasChosen) {
    openMessage();
    define("A 1 N 'x'");
    add(messages.builder, "word");
    ASSERT_EQ(screen.boxes.size(), 1U);
    EXPECT_EQ(screen.boxes.front().text, "Insert Numeric Type Value!");
}

TEST_F(ConditionHomes, SetThePicturesAfterADuplicateOrLeaveThem) {
    const auto duplicate = [this](ConditionControls& builder) {
        press(builder.tlbOperator1, "!=");
        add(builder, "7");
        add(builder, "7");
        EXPECT_EQ(builder.tlbOperator1.button("==").value(), 1);
        EXPECT_EQ(builder.tlbOperator1.button("!=").value(), 0);
        return builder.tlbOperator1.button("==").picture() + " " +
               builder.tlbOperator1.button("!=").picture();
    };
    openMessage();
    EXPECT_EQ(duplicate(messages.builder), "Equal_Pressed NotEqual_Unpressed");
    openItem();
    EXPECT_EQ(duplicate(items.builder), "Equal_Unpressed NotEqual_Pressed");
}

TEST_F(ConditionHomes, AddAtEnterInTheValueOrNot) {
    const auto rowsAtEnter = [this](ConditionControls& builder) {
        EXPECT_EQ(hands.choose(builder.cmbDataItem, "N"), "");
        EXPECT_EQ(hands.paste(builder.txtDataItemValue, "7"), "");
        EXPECT_EQ(hands.key(builder.txtDataItemValue, {kKeyEnter, 0}), "");
        return builder.lvwSimpleCondition.count();
    };
    openMessage();
    EXPECT_EQ(rowsAtEnter(messages.builder), 1U);
    openItem();
    EXPECT_EQ(rowsAtEnter(items.builder), 0U);
}

// The program presses exactly one button. If both are pressed, each dialog reads the first or the last one
// that it finds.
TEST_F(ConditionHomes, ReadTheFirstOrTheLastPressedOperator) {
    openMessage();
    messages.builder.tlbOperator1.button("!=").setValue(1);
    add(messages.builder, "7");
    EXPECT_EQ(messages.builder.lvwSimpleCondition.rows().front()->cell(1), "{N} == 7");
    openItem();
    items.builder.tlbOperator1.button("!=").setValue(1);
    add(items.builder, "7");
    EXPECT_EQ(items.builder.lvwSimpleCondition.rows().front()->cell(1), "{N} != 7");
}

TEST_F(ConditionHomes, AddNothingWhileNoOperatorIsPressed) {
    openMessage();
    messages.builder.tlbOperator1.button("==").setValue(0);
    add(messages.builder, "7");
    EXPECT_EQ(messages.builder.lvwSimpleCondition.count(), 0U);
    EXPECT_EQ(messages.builder.txtDataItemValue.text(), "7");
}

TEST_F(ConditionHomes, NameTheButtonForComplexConditions) {
    EXPECT_EQ(messages.builder.cmdEdit.name(), "cmdEditCondition");
    EXPECT_EQ(items.builder.cmdEdit.name(), "cmdEdit");
}

TEST_F(ConditionHomes, TakeTextButNoPictureAsAnOperand) {
    openMessage();
    const Target operand = Target::whole(messages.builder.txtOperand1);
    EXPECT_EQ(hands.drop({"S1", nullptr}, operand), "");
    EXPECT_EQ(hands.drop({"if", nullptr, DragData::Form::Picture}, operand), "");
    EXPECT_EQ(messages.builder.txtOperand1.text(), "S1");
}

} // namespace
} // namespace zb
