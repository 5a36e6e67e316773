#include "editor/item_pane.h"

#include "controls/desktop.h"
#include "editor/editor_controls.h"
#include "editor/item_key_filter.h"
#include "editor/step_names.h"
#include "editor/value_notice.h"
#include "messages/item_key.h"
#include "messages/item_record.h"
#include "messages/item_value.h"
#include "messages/message_nodes.h"
#include "messages/value_loss.h"
#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <array>

namespace zb {

namespace {

constexpr double kMostCount = 1000000;

/// The type tokens of the buttons, in order.
constexpr std::array<std::string_view, 16> kTypeTokens{"L",  "A",  "B",  "BOOLEAN", "I1", "I2", "I4", "I8",
                                                       "U1", "U2", "U4", "U8",      "F4", "F8", "J",  "X"};
constexpr std::size_t kListButton = 0;

std::string_view tokenOf(const ToolbarButton& button) {
    return kTypeTokens.at(static_cast<std::size_t>(button.index()) - 1);
}

std::string_view countWithoutMark(std::string_view nodeText) {
    std::string_view count = wordAt(nodeText, 1);
    if (count.ends_with('V'))
        count.remove_suffix(1);
    return count;
}

SECSItemRecord recordOf(const Node& node) {
    SECSItemRecord record;
    record.parseText(node.text());
    return record;
}

/// Suppresses a handler of a store during its lifetime.
class FlagGuard {
public:
    explicit FlagGuard(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~FlagGuard() { flag_ = before_; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

private:
    bool& flag_;
    bool before_;
};

} // namespace

ItemPane::ItemPane(EditorControls& window, const CodePage& codePage) : window_(window), codePage_(codePage) {
    wireFields();
    wireChecks();
    window_.tbritemType.onButtonClick = [this](ToolbarButton& button) { typeClicked(button); };
    resetTypeButtons();
}

void ItemPane::wireFields() {
    TextField& name = window_.txtItemName;
    TextField& count = window_.txtItemCount;
    TextField& value = window_.txtInit;
    for (TextField* field : {&name, &count, &value})
        field->setWritesThrough();
    name.onKeyDown = [this, &name](KeyEvent key) {
        if (selectedItem() != nullptr)
            applyKeyEffect(name, filterItemNameKey(key, name.text()));
    };
    count.onKeyDown = [this, &count](KeyEvent key) {
        if (selectedItem() != nullptr)
            applyKeyEffect(count, filterItemCountKey(key, count.text()));
    };
    value.onKeyDown = [this, &value](KeyEvent key) {
        if (selectedItem() != nullptr)
            applyKeyEffect(value, filterItemValueKey(getSelectedItemType(), key, value.text()));
    };
    name.onKeyUp = [this](KeyEvent) { nameTyped(); };
    count.onKeyUp = [this](KeyEvent) { countTyped(); };
    value.onChange = [this] { valueChanged(); };
    value.onLostFocus = [this] { valueLeft(); };
    name.onGotFocus = [&name] { name.selectAll(); };
    value.onGotFocus = [&value] { value.selectAll(); };
}

void ItemPane::wireChecks() {
    window_.chkFix.onRelease = [this] {
        if (Node* node = selectedItem()) {
            window_.desktop().steps().name("Change Fixed Count of " + nameForSteps(*node));
            updateItemNodeText(*node);
        }
    };
    window_.chkIsItemKey.onRelease = [this] { keyReleased(); };
}

namespace {

std::string typingIn(const Label& label, Node& node) {
    return "Type in " + label.text() + " of " + nameForSteps(node);
}

} // namespace

void ItemPane::nameStep(const TextField& field, Node& node) {
    const Label& label = &field == &window_.txtItemName    ? window_.lblItemName
                         : &field == &window_.txtItemCount ? window_.lblItemCount
                                                           : window_.lblInit;
    UserSteps& steps = window_.desktop().steps();
    const TypingPlace place{&field, &node};
    if (steps.wantsName())
        steps.name(steps.isTypingAt(place) ? "Type" : typingIn(label, node), place);
}

Node* ItemPane::selectedNode() const {
    return window_.tvwEdit.nodes().selected();
}

Node* ItemPane::selectedItem() const {
    Node* node = selectedNode();
    return node != nullptr && node->parent() != nullptr ? node : nullptr;
}

void ItemPane::InitItem() {
    window_.txtItemName.setText("");
    window_.txtItemCount.setText("");
    window_.txtInit.setText("");
    window_.chkFix.setChecked(false);
    resetTypeButtons();
}

void ItemPane::updateItemNodeText(Node& node) {
    std::string type = getSelectedItemType();
    // An item of a type without a button keeps it.
    if (type.empty())
        type = wordAt(node.text(), 0);
    const ValueForm form = valueFormOf(type);
    const std::string& name = window_.txtItemName.text();
    const std::string& value = window_.txtInit.text();
    std::string text = type + " " + window_.txtItemCount.text();
    if (!window_.chkFix.checked())
        text += "V";
    if (!isBlank(name))
        text += " " + name;
    if (form == ValueForm::Quoted)
        text += " '" + value + "'";
    else if (form != ValueForm::None && !isBlank(value))
        text += " " + value;
    if (window_.chkIsItemKey.checked())
        text += kKeyMark;
    node.setText(std::move(text));
}

// Name, count and key

void ItemPane::nameTyped() {
    Node* node = selectedItem();
    if (node == nullptr)
        return;
    nameStep(window_.txtItemName, *node);
    if (!isNumeric(window_.txtItemName.text())) {
        updateItemNodeText(*node);
        return;
    }
    window_.desktop().showBox("Only numeric value cannot be a item name.");
    giveBack(window_.txtItemName, recordOf(*node).getName(), *node);
}

void ItemPane::countTyped() {
    Node* node = selectedItem();
    if (node == nullptr)
        return;
    nameStep(window_.txtItemCount, *node);
    const std::string& text = window_.txtItemCount.text();
    const double value = valueOf(text);
    if (!isNumeric(text) || (value >= 0 && value <= kMostCount)) {
        updateItemNodeText(*node);
        return;
    }
    window_.desktop().showBox("Insert a numeral between 0 to 1000000 for a ItemCount");
    giveBack(window_.txtItemCount, countWithoutMark(node->text()), *node);
}

void ItemPane::giveBack(TextField& field, std::string_view text, Node& node) {
    field.setText(text);
    field.setFocus();
    window_.tvwEdit.nodes().select(&node);
}

void ItemPane::keyReleased() {
    Node* node = selectedNode();
    if (node == nullptr)
        return;
    if (node->parent() == nullptr || isKeyForbidden(*node)) {
        window_.chkIsItemKey.setChecked(false);
        return;
    }
    window_.desktop().steps().name("Change ItemKey of " + nameForSteps(*node));
    clearKeysInMessage(*node);
    updateItemNodeText(*node);
}

// Value

void ItemPane::valueChanged() {
    Node* node = selectedItem();
    if (storingValue_ || onlyShows_ || node == nullptr)
        return;
    nameStep(window_.txtInit, *node);
    const std::string type = getSelectedItemType();
    const ValueForm form = valueFormOf(type);
    if (form == ValueForm::None || form == ValueForm::Unknown)
        return;
    const TypedValue verdict = judgeTypedValue(type, window_.txtInit.text());
    if (verdict.state == TypedValue::State::Refused)
        window_.desktop().showBox(std::string(verdict.refusal));
    if (verdict.state != TypedValue::State::Good)
        return;
    if (form != ValueForm::Boolean && form != ValueForm::Quoted) {
        const CountMode mode = window_.chkFix.checked() ? CountMode::Fixed : CountMode::Variable;
        const std::string typed = window_.txtInit.text();
        storeValueQuietly(normalizeItemValue(type, countOfField(), mode, typed));
        reportLoss(window_.desktop(), lostByType(type, typed, window_.txtInit.text()));
    }
    updateItemNodeText(*node);
    if (form != ValueForm::Quoted)
        window_.txtInit.caretToEnd();
}

/// Canonical text may differ from any text that a user could type (a large U8 has an exponent), so it is not
/// checked.
void ItemPane::storeValueQuietly(std::string_view text) {
    const FlagGuard hold(storingValue_);
    window_.txtInit.setText(text);
}

void ItemPane::valueLeft() {
    Node* node = selectedItem();
    if (node == nullptr || onlyShows_)
        return;
    const UserSteps::Part part(window_.desktop().steps(), typingIn(window_.lblInit, *node),
                               {&window_.txtInit, node});
    normalizeAndReport(window_.desktop(), *node, recordOf(*node), codePage_);
}

int ItemPane::countOfField() const {
    return static_cast<int>(
        std::clamp(roundHalfEven(valueOf(window_.txtItemCount.text())), -1.0, kMostCount));
}

// Type

void ItemPane::resetTypeButtons() {
    for (ToolbarButton& button : window_.tbritemType.buttons()) {
        button.setValue(0);
        button.setImage(2 * button.index() - 1);
    }
}

void ItemPane::pressOnly(ToolbarButton& button) {
    resetTypeButtons();
    button.setValue(1);
    button.setImage(2 * button.index());
}

std::string ItemPane::getSelectedItemType() const {
    const auto& buttons = window_.tbritemType.buttons();
    const auto down = std::find_if(buttons.begin(), buttons.end(),
                                   [](const ToolbarButton& button) { return button.value() == 1; });
    return down == buttons.end() ? std::string() : std::string(tokenOf(*down));
}

void ItemPane::selectTypeButton(std::string_view token) {
    resetTypeButtons();
    const std::string wanted = upper(token);
    for (ToolbarButton& button : window_.tbritemType.buttons()) {
        if (tokenOf(button) == wanted)
            pressOnly(button);
    }
}

void ItemPane::typeClicked(ToolbarButton& button) {
    Node* node = selectedItem();
    if (node == nullptr) {
        pressOnly(button);
        return;
    }
    const std::string_view newType = tokenOf(button);
    if (valueFormOf(newType) != ValueForm::None && node->child() != nullptr) {
        pressOnly(window_.tbritemType.buttons()[kListButton]);
        window_.desktop().showBox("You cannot change to other type.\r\nBecause the list has sub elements",
                                  BoxIcon::Information);
        return;
    }
    window_.desktop().steps().name("Change type of " + nameForSteps(*node));
    fitValueToType(newType, *node);
    pressOnly(button);
    updateItemNodeText(*node);
}

/// The old type still decides the meaning of a change of the field, so it is cleared silently: a fixed number
/// would restore its "0".
void ItemPane::fitValueToType(std::string_view newType, const Node& node) {
    switch (valueFormOf(newType)) {
    case ValueForm::None:
        storeValueQuietly("");
        window_.txtInit.setEnabled(false);
        break;
    case ValueForm::Quoted:
        // The field of a list stays disabled until the item is clicked again.
        if (valueFormOf(wordAt(trimmed(node.text()), 0)) != ValueForm::Quoted)
            storeValueQuietly("");
        break;
    default:
        window_.txtInit.setEnabled(true);
        break;
    }
}

// A change by the program

std::string ItemPane::namePart() const {
    const std::string name = trim(replaceAll(window_.txtItemName.text(), "'", ""));
    return name.empty() ? std::string() : " " + name;
}

std::string ItemPane::countPart() const {
    return " " + printDouble(valueOf(window_.txtItemCount.text()));
}

void ItemPane::ThisItemChange(int nodeIndex, int keep) {
    Node* node = window_.tvwEdit.nodes().at(nodeIndex);
    const std::string type = getSelectedItemType();
    if (type.empty()) {
        window_.desktop().showBox("You must select an item type");
        return;
    }
    const auto value = cleanItemValue(type, valueOf(window_.txtItemCount.text()), window_.txtInit.text());
    if (!value) {
        window_.desktop().showBox("Bad item type");
        return;
    }
    if (node == nullptr)
        return;
    std::string text = type + countPart() + (window_.chkFix.checked() ? "" : "V") + namePart();
    if (valueFormOf(type) == ValueForm::Quoted)
        text += " '" + *value + "'";
    else if (!value->empty())
        text += " " + *value;
    if (keep == 0 && trimmed(*value) != trimmed(window_.txtInit.text()))
        window_.txtInit.setText(trimmed(*value));
    node->setText(std::move(text));
}

} // namespace zb
