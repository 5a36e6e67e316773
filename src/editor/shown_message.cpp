#include "editor/shown_message.h"

#include "editor/frm_sec_editor.h"
#include "messages/message_nodes.h"
#include "platform/text.h"

namespace zb {

ShownMessage::ShownMessage(frmSECSEditor& window) : window_(window) {
    window_.tvwEdit.marks().onSelected = [this] { show(); };
    show();
}

void ShownMessage::isSelected() {
    name_ = nameOfSelected();
    state_ = name_.empty() ? State::None : State::Message;
    show();
}

void ShownMessage::isEmptied() {
    state_ = State::Emptied;
    show();
}

void ShownMessage::isNew() {
    state_ = State::New;
    show();
}

void ShownMessage::isNone() {
    state_ = State::None;
    show();
}

std::string ShownMessage::nameOfSelected() const {
    Node* selected = window_.liveTree().selected();
    Node* message = selected == nullptr ? nullptr : messageOf(rootOf(*selected)).message;
    return message == nullptr ? std::string() : trim(nameInText(message->text()));
}

void ShownMessage::show() {
    const std::string selected = nameOfSelected();
    std::string text;
    if (!selected.empty() && state_ == State::Message && name_ != selected)
        text = "shows " + name_ + ", selected is " + selected;
    else if (!selected.empty() && state_ == State::Emptied)
        text = "is empty, selected is " + selected;
    else if (state_ == State::New)
        text = "a new message: Enter adds it";
    window_.lblStale.setText(text);
    window_.lblStale.setToolTip(text);
    window_.lblStale.setVisible(!text.empty());
}

} // namespace zb
