#include "editor/message_pane.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "editor/message_key_filter.h"
#include "editor/step_names.h"
#include "messages/message_nodes.h"
#include "messages/message_record.h"
#include "platform/number.h"
#include "platform/text.h"
#include "platform/wildcard.h"

#include <algorithm>
#include <cmath>

namespace zb {

namespace {

// The bounds themselves are accepted, although the boxes mention smaller ones.
constexpr int kMostStream = 128;
constexpr int kMostFunction = 255;

bool isGoodNumber(std::string_view text, int most) {
    return isNumeric(text) && valueOf(text) >= 0 && valueOf(text) <= most;
}

bool isEven(std::string_view text) {
    return std::fmod(roundHalfEven(valueOf(text)), 2) == 0;
}

/// The name of a message without an entered name.
std::string defaultName(std::string_view stream, std::string_view function) {
    return "S" + trim(stream) + "F" + trim(function);
}

bool isNoName(std::string_view name) {
    return hasColon(name) || isNumeric(name);
}

std::string streamRefusal(std::string_view article) {
    return "You must insert " + std::string(article) + " positive number less than 128 in the stream";
}

std::string functionRefusal(std::string_view article) {
    return "You must insert " + std::string(article) + " positive number less than 255 in the function";
}

/// The MessageNode as the number fields find it; unlike messageOf, it does not require a description.
Node* messageBeside(Node& root) {
    if (hasColon(root.text()))
        return &root;
    if (root.next() != nullptr && hasColon(root.next()->text()))
        return root.next();
    return siblingAt(&root, 2);
}

} // namespace

MessagePane::MessagePane(frmSECSEditor& window) : window_(window) {
    wireFields();
    window_.cmdMsgAdd.onClick = [this] { add(); };
    window_.cmdMsgChange.onClick = [this] { change(); };
    window_.cboSECSMessage.onChoose = [this] { chooseMessage(); };
}

void MessagePane::wireFields() {
    for (const Word word : {Word::Stream, Word::Function}) {
        TextField& number = field(word);
        number.onKeyDown = [&number](KeyEvent key) { applyKeyEffect(number, filterNumberKey(key)); };
        number.onChange = [this, word] { numberChanged(word); };
    }
    TextField& name = window_.txtMsgName;
    name.onKeyDown = [&name](KeyEvent key) { applyKeyEffect(name, filterMessageNameKey(key, name.text())); };
    name.onGotFocus = [&name] { name.selectAll(); };
    TextField& description = window_.txtDescription;
    description.onKeyDown = [&description](KeyEvent key) {
        applyKeyEffect(description, filterDescriptionKey(key));
    };
    description.onGotFocus = [&description] { description.selectAll(); };
}

void MessagePane::InitMsg() {
    for (TextField* text :
         {&window_.txtStream, &window_.txtFunction, &window_.txtMsgName, &window_.txtDescription})
        text->setText("");
    for (CheckBox* check : {&window_.chkWait, &window_.chkReply, &window_.chkNoLogging}) {
        check->setChecked(false);
        check->setEnabled(true);
    }
    window_.optHost.setOn(true);
}

void MessagePane::display(const SECSMessageRecord& record) {
    if (record.getDirection() == "H->E")
        window_.optHost.setOn(true);
    else if (record.getDirection() == "H<-E")
        window_.optEqp.setOn(true);
    else
        window_.optBoth.setOn(true);
    window_.chkWait.setChecked(record.getWait());
    window_.chkReply.setChecked(record.getReply());
}

void MessagePane::InsertCbo(std::string_view name) {
    window_.cboSECSMessage.add(std::string(name));
}

void MessagePane::removeCbo(std::string_view name) {
    const auto& entries = window_.cboSECSMessage.entries();
    const auto found = std::find(entries.begin(), entries.end(), name);
    window_.cboSECSMessage.removeAt(static_cast<std::size_t>(found - entries.begin()));
}

void MessagePane::removeNames(const std::vector<std::string>& names) {
    window_.cboSECSMessage.removeAll(names);
}

void MessagePane::cboFirstSelect() {
    // A single message is not selected: the user starts with an empty pane.
    if (window_.cboSECSMessage.entries().size() > 1)
        window_.cboSECSMessage.choose(0);
}

void MessagePane::cboSelectWithKey(std::string_view name) {
    const auto& entries = window_.cboSECSMessage.entries();
    const auto found = std::find(entries.begin(), entries.end(), name);
    window_.cboSECSMessage.choose(static_cast<std::size_t>(found - entries.begin()));
}

void MessagePane::chooseMessage() {
    const std::string& name = window_.cboSECSMessage.text();
    Node* node = window_.liveTree().find(name);
    // Keys are unique without case, so no other node can have exactly this text.
    if (node != nullptr && node->key() == name)
        window_.liveTree().select(node);
}

bool MessagePane::add() {
    if (refuseNameOfAdd() || refuseNumbers("a"))
        return false;
    if (window_.txtMsgName.text().empty())
        window_.txtMsgName.setText(defaultName(window_.txtStream.text(), window_.txtFunction.text()));
    const std::string name = window_.txtMsgName.text();
    if (isMessageKeyUsed(window_.liveTree(), name, 0)) {
        window_.desktop().showBox(name + " already exits.", BoxIcon::Critical);
        window_.txtMsgName.setFocus();
        return false;
    }
    window_.desktop().steps().name("Add " + name);
    needDirection();
    append(name, nodeText(), window_.txtDescription.text());
    if (!isEven(window_.txtFunction.text()))
        addReply();
    return true;
}

void MessagePane::addReply() {
    const std::string function = printDouble(valueOf(window_.txtFunction.text()) + 1);
    const std::string name = defaultName(window_.txtStream.text(), function);
    if (isMessageKeyUsed(window_.liveTree(), name, 0))
        return;
    const char* mirrored = window_.optHost.on() ? " H<-E" : window_.optEqp.on() ? " H->E" : " H<->E";
    append(name, name + ": S" + window_.txtStream.text() + " F" + function + mirrored, "");
}

void MessagePane::append(const std::string& name, std::string text, std::string description) {
    addMessageNodes(window_.liveTree(), nullptr, name, std::move(text), std::move(description));
    InsertCbo(name);
    window_.TreeView_ForeColor();
}

bool MessagePane::change() {
    if (refuseNumbers("j"))
        return false;
    // A failed check can select an item while the button is still enabled; it is not a message.
    Node* selected = window_.liveTree().selected();
    if (selected == nullptr || selected->parent() != nullptr) {
        window_.desktop().showBox("No selected message.");
        return false;
    }
    window_.desktop().steps().name("Change " + nameForSteps(*selected));
    const Node* message = messageOf(*selected).message;
    return message == nullptr || applyFields(message->index());
}

void MessagePane::applyMessageChange(int index) {
    applyFields(index);
}

bool MessagePane::applyFields(int index) {
    Node* message = window_.liveTree().at(index);
    if (message == nullptr)
        return true;
    const std::string oldName(nameInText(wordAt(message->text(), 0)));
    if (window_.txtMsgName.text().empty() || isNoName(window_.txtMsgName.text()))
        window_.txtMsgName.setText(oldName);
    if (const std::string newName = window_.txtMsgName.text(); newName != oldName) {
        if (isMessageKeyUsed(window_.liveTree(), newName, index)) {
            window_.desktop().showBox(newName + " already exists.", BoxIcon::Critical);
            window_.txtMsgName.setFocus();
            return false;
        }
        removeCbo(oldName);
        InsertCbo(newName);
        cboSelectWithKey(newName);
    }
    restoreBadNumber(*message, Word::Stream);
    restoreBadNumber(*message, Word::Function);
    needDirection();
    if (message->previous() != nullptr)
        message->previous()->setText(window_.txtDescription.text());
    if (window_.txtMsgName.text() != oldName)
        window_.liveTree().setKey(*message, window_.txtMsgName.text());
    message->setText(nodeText());
    window_.shownMessage.isSelected();
    if (window_.txtMsgName.text() != oldName)
        fire(onRenamed, std::vector<Rename>{{oldName, window_.txtMsgName.text()}});
    return true;
}

void MessagePane::numberChanged(Word word) {
    Node* selected = window_.liveTree().selected();
    if (selected == nullptr || selected->parent() != nullptr)
        return;
    const Node* message = messageBeside(*selected);
    if (message == nullptr)
        return;
    TextField& number = field(word);
    const std::string old = oldNumber(*message, word);
    if (word == Word::Function)
        enableByFunction();
    const double value = valueOf(number.text());
    if (value < 0 || value > (word == Word::Stream ? kMostStream : kMostFunction)) {
        window_.desktop().showBox(word == Word::Stream ? streamRefusal("a") : functionRefusal("a"));
        number.setText(old);
    }
    // A name that still contains the old number belongs to a new message, which Add names automatically.
    const bool same = number.text() == old;
    const Node* description = message->previous();
    window_.txtMsgName.setText(same ? trim(nameInText(message->text())) : "");
    window_.txtDescription.setText(same && description != nullptr ? trim(description->text()) : "");
}

void MessagePane::enableByFunction() {
    const bool primary = !isEven(window_.txtFunction.text());
    window_.chkWait.setEnabled(primary);
    window_.chkReply.setEnabled(primary);
    if (primary)
        return;
    for (CheckBox* check : {&window_.chkWait, &window_.chkReply, &window_.chkNoLogging})
        check->setChecked(false);
}

bool MessagePane::refuseNumbers(std::string_view article) {
    if (!isGoodNumber(window_.txtStream.text(), kMostStream)) {
        window_.desktop().showBox(streamRefusal(article));
        window_.txtStream.setFocus();
        return true;
    }
    if (!isGoodNumber(window_.txtFunction.text(), kMostFunction)) {
        window_.desktop().showBox(functionRefusal(article));
        window_.txtFunction.setFocus();
        return true;
    }
    return false;
}

bool MessagePane::refuseNameOfAdd() {
    if (!isNoName(window_.txtMsgName.text()))
        return false;
    window_.desktop().showBox(R"(You must fill a messge name without symbolic character such as ":")");
    window_.txtMsgName.setFocus();
    return true;
}

std::string MessagePane::oldNumber(const Node& messageNode, Word word) {
    const std::string_view text = wordAt(messageNode.text(), word == Word::Stream ? 1 : 2);
    return std::string(text.substr(text.empty() ? 0 : 1));
}

void MessagePane::restoreBadNumber(const Node& messageNode, Word word) {
    const std::string& text = field(word).text();
    if (!isNumeric(text) || valueOf(text) < 0)
        field(word).setText(oldNumber(messageNode, word));
}

TextField& MessagePane::field(Word word) {
    return word == Word::Stream ? window_.txtStream : window_.txtFunction;
}

void MessagePane::needDirection() {
    if (!window_.optHost.on() && !window_.optEqp.on() && !window_.optBoth.on())
        window_.optBoth.setOn(true);
}

std::string MessagePane::nodeText() {
    std::string text =
        window_.txtMsgName.text() + ": S" + window_.txtStream.text() + " F" + window_.txtFunction.text();
    text += window_.chkWait.checked() ? " W" : "";
    text += window_.chkReply.checked() ? " <R>" : "";
    text += window_.chkNoLogging.checked() ? " <NL>" : "";
    text += window_.optHost.on() ? " H->E" : window_.optEqp.on() ? " H<-E" : " H<->E";
    return text;
}

} // namespace zb
