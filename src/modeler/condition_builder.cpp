#include "modeler/condition_builder.h"

#include "controls/desktop.h"
#include "messages/message_record.h"
#include "model/condition.h"
#include "model/condition_text.h"
#include "modeler/frm_array_info.h"
#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <utility>
#include <variant>
#include <vector>

namespace zb {

namespace {

std::string pictureName(const ToolbarButton& button, bool pressed) {
    std::string name = button.key();
    if (name == "==")
        name = "Equal";
    else if (name == "!=")
        name = "NotEqual";
    return name + (pressed ? "_Pressed" : "_Unpressed");
}

/// One of the two buttons is always pressed.
void pressOnly(Toolbar& bar, const ToolbarButton& pressed) {
    for (ToolbarButton& button : bar.buttons())
        button.setValue(&button == &pressed ? 1 : 0);
}

void press(Toolbar& bar, const ToolbarButton& pressed) {
    pressOnly(bar, pressed);
    for (ToolbarButton& button : bar.buttons())
        button.setPicture(pictureName(button, &button == &pressed));
}

/// One more than the number in the last row's id.
std::string nextId(const List& list, char letter) {
    int number = 0;
    if (list.count() > 0) {
        const std::string& last = list.rows().back()->text();
        std::from_chars(last.data() + 1, last.data() + last.size(), number);
    }
    return letter + std::to_string(number + 1);
}

void addRow(List& list, char letter, std::string condition) {
    const std::string id = nextId(list, letter);
    list.add(id, id).setCell(1, std::move(condition));
}

/// The id of the row with that condition, which is added when there is none.
std::string rowOf(List& list, char letter, const std::string& condition) {
    for (const auto& row : list.rows()) {
        if (row->cell(1) == condition)
            return row->text();
    }
    addRow(list, letter, condition);
    return list.rows().back()->text();
}

std::string textOf(const Comparison& comparison) {
    return simpleCondition(comparison.item.text(), comparison.isEqual ? "==" : "!=", comparison.value);
}

} // namespace

void acceptTextDrops(Control& field, std::function<void(const std::string&)> take) {
    field.onDropData = [take = std::move(take)](const DragData& data) {
        if (data.form == DragData::Form::Text)
            take(data.text);
    };
}

ConditionBuilder::ConditionBuilder(ConditionControls& controls, frmArrayInfo& arrayDialog, ConditionHome home)
    : controls_(controls), arrayDialog_(arrayDialog), home_(std::move(home)) {
    controls_.cmbDataItem.onChoose = [this] {
        controls_.txtDataItemValue.setText("");
        askForArrayIndex(controls_.cmbDataItem, home_.messageOfIndex(), arrayDialog_);
    };
    for (Toolbar* bar : {&controls_.tlbOperator1, &controls_.tlbOperator2})
        bar->onButtonClick = [bar](const ToolbarButton& button) { press(*bar, button); };
    controls_.cmdAddCondition.onClick = [this] { addSimpleCondition(); };
    controls_.cmdEdit.onClick = [this] { addComplexCondition(); };
    if (home_.enterInValue == ConditionHome::EnterInValue::AddsCondition) {
        controls_.txtDataItemValue.onKeyDown = [this](KeyEvent key) {
            if (key.code == kKeyEnter)
                addSimpleCondition();
        };
    }
    controls_.txtOperand2.onKeyDown = [this](KeyEvent key) {
        if (key.code == kKeyEnter)
            addComplexCondition();
    };
    for (TextField* operand : {&controls_.txtOperand1, &controls_.txtOperand2})
        acceptTextDrops(*operand, [operand](const std::string& id) { operand->setText(id); });
    for (List* list : {&controls_.lvwSimpleCondition, &controls_.lvwComplexCondition}) {
        list->onDragStart = [list]() -> std::optional<DragData> {
            if (const ListRow* row = list->selected(); row != nullptr)
                return DragData{row->text(), list};
            return std::nullopt;
        };
    }
    reset();
}

void ConditionBuilder::reset() {
    press(controls_.tlbOperator1, controls_.tlbOperator1.button("=="));
    press(controls_.tlbOperator2, controls_.tlbOperator2.button("and"));
    controls_.txtDataItemValue.setText("");
    controls_.txtOperand1.setText("");
    controls_.txtOperand2.setText("");
    controls_.lvwSimpleCondition.clear();
    controls_.lvwComplexCondition.clear();
}

const ToolbarButton* ConditionBuilder::pressedButton(const Toolbar& bar) const {
    const ToolbarButton* pressed = nullptr;
    for (const ToolbarButton& button : bar.buttons()) {
        if (button.value() != 1)
            continue;
        pressed = &button;
        if (home_.reading == ConditionHome::OperatorReading::FirstPressed)
            break;
    }
    return pressed;
}

std::optional<std::string> ConditionBuilder::conditionOfFields() {
    const Combo& item = controls_.cmbDataItem;
    if (isBlank(item.text()) || isBlank(controls_.txtDataItemValue.text()))
        return std::nullopt;
    const ToolbarButton* comparison = pressedButton(controls_.tlbOperator1);
    if (comparison == nullptr || !formValue())
        return std::nullopt;
    return simpleCondition(item.text(), comparison->key(), controls_.txtDataItemValue.text());
}

void ConditionBuilder::addSimpleCondition() {
    const std::optional<std::string> condition = conditionOfFields();
    if (!condition)
        return;
    const auto& rows = controls_.lvwSimpleCondition.rows();
    if (std::any_of(rows.begin(), rows.end(), [&](const auto& row) { return row->cell(1) == *condition; }))
        refuseDuplicate(*condition);
    else
        addRow(controls_.lvwSimpleCondition, 'S', *condition);
}

bool ConditionBuilder::takeApart(std::string_view finished) {
    const Condition condition = Condition::parse(finished);
    if (condition.nodes().empty())
        return false;
    controls_.lvwSimpleCondition.clear();
    controls_.lvwComplexCondition.clear();
    std::vector<std::string> ids; // of the nodes
    for (const ConditionNode& node : condition.nodes()) {
        if (const auto* comparison = std::get_if<Comparison>(&node); comparison != nullptr) {
            ids.push_back(rowOf(controls_.lvwSimpleCondition, 'S', textOf(*comparison)));
        } else {
            const auto& joined = std::get<Junction>(node);
            const char* word = joined.word == Junction::Word::And ? " and " : " or ";
            ids.push_back(
                rowOf(controls_.lvwComplexCondition, 'C', ids[joined.left] + word + ids[joined.right]));
        }
    }
    List& last = ids.back().starts_with('S') ? controls_.lvwSimpleCondition : controls_.lvwComplexCondition;
    last.select(last.find(ids.back()));
    return true;
}

bool ConditionBuilder::takeIntoFields() {
    const ListRow* row = controls_.lvwSimpleCondition.selected();
    if (row == nullptr)
        return false;
    const Condition condition = Condition::parse("(" + row->cell(1) + ")");
    const auto* comparison =
        condition.nodes().size() == 1 ? std::get_if<Comparison>(&condition.nodes().front()) : nullptr;
    if (comparison == nullptr)
        return false;
    controls_.cmbDataItem.setText(comparison->item.text());
    press(controls_.tlbOperator1, controls_.tlbOperator1.button(comparison->isEqual ? "==" : "!="));
    // The apostrophes come back when the condition is made.
    const bool quoted = conditionValueForm(typeOfDataItem()) == ConditionValueForm::Quoted;
    controls_.txtDataItemValue.setText(quoted ? comparison->plainValue() : comparison->value);
    controls_.txtDataItemValue.setFocus();
    controls_.txtDataItemValue.selectAll();
    return true;
}

void ConditionBuilder::replaceByFields() {
    ListRow* row = controls_.lvwSimpleCondition.selected();
    const std::optional<std::string> condition = row == nullptr ? std::nullopt : conditionOfFields();
    if (condition)
        row->setCell(1, *condition);
}

bool ConditionBuilder::formValue() {
    TextField& field = controls_.txtDataItemValue;
    const ConditionValueForm form = conditionValueForm(typeOfDataItem());
    if (!isConditionValue(form, field.text())) {
        refuseValue(form == ConditionValueForm::Boolean ? "Insert Boolean Type Value!"
                                                        : "Insert Numeric Type Value!");
        return false;
    }
    // The field itself gets the apostrophes, so a second click quotes the quoted text.
    if (form == ConditionValueForm::Quoted)
        field.setText("'" + field.text() + "'");
    return true;
}

std::string ConditionBuilder::typeOfDataItem() const {
    const SECSMessageRecord* message = home_.selectedMessage();
    if (message == nullptr)
        return {};
    const std::string_view name = before(controls_.cmbDataItem.text(), "[");
    std::string type;
    for (const SECSItemRecord& item : message->getItems()) {
        if (item.getName() == name)
            type = item.getType();
    }
    return type;
}

void ConditionBuilder::refuseValue(std::string text) {
    desktop().showBox(std::move(text), BoxIcon::Information);
    TextField& field = controls_.txtDataItemValue;
    // The focus moves the caret to the end of the text, so it is set first.
    field.setFocus();
    field.selectAll();
}

void ConditionBuilder::refuseDuplicate(const std::string& condition) {
    desktop().showBox("Defined Condition\r\n" + condition, BoxIcon::Exclamation);
    controls_.txtDataItemValue.setText("");
    controls_.cmbDataItem.setText("");
    Toolbar& bar = controls_.tlbOperator1;
    const ToolbarButton& first = bar.buttons().front();
    if (home_.afterDuplicate == ConditionHome::AfterDuplicate::PressFirst)
        press(bar, first);
    else
        pressOnly(bar, first);
}

void ConditionBuilder::addComplexCondition() {
    const std::string& left = controls_.txtOperand1.text();
    const std::string& right = controls_.txtOperand2.text();
    if (isBlank(left) || isBlank(right))
        return;
    if (const ToolbarButton* word = pressedButton(controls_.tlbOperator2); word != nullptr)
        addRow(controls_.lvwComplexCondition, 'C', left + " " + word->key() + " " + right);
}

std::string ConditionBuilder::conditionOfId(std::string_view id) const {
    const List* list = nullptr;
    if (id.starts_with('S'))
        list = &controls_.lvwSimpleCondition;
    else if (id.starts_with('C'))
        list = &controls_.lvwComplexCondition;
    const ListRow* row = list == nullptr ? nullptr : list->find(id);
    return row == nullptr ? std::string() : row->cell(1);
}

std::optional<std::string> ConditionBuilder::expandCondition(std::string_view condition) const {
    return zb::expandCondition(condition, [this](std::string_view id) { return conditionOfId(id); });
}

std::optional<std::string> ConditionBuilder::finishedConditionOf(std::string_view id) const {
    return expandCondition(conditionOfId(id));
}

} // namespace zb
