#include "editor/type_ahead.h"

#include "controls/desktop.h"
#include "controls/key_effects.h"
#include "editor/frm_sec_editor.h"
#include "messages/message_nodes.h"
#include "platform/text.h"

#include <chrono>
#include <string_view>

namespace zb {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kPause = 1s;

bool beginsWith(std::string_view text, std::string_view typed) {
    return equalsIgnoringCase(text.substr(0, typed.size()), typed);
}

/// "AreYouThere: S1 F1 W" begins with "are" and with "s1f1".
bool beginsSo(const Node& node, std::string_view typed) {
    if (!contains(node.text(), ":"))
        return false;
    const std::string numbers = std::string(wordAt(node.text(), 1)) + std::string(wordAt(node.text(), 2));
    return beginsWith(nameInText(node.text()), typed) || beginsWith(numbers, typed);
}

} // namespace

TypeAhead::TypeAhead(frmSECSEditor& window) : window_(window) {
    window_.tvwEdit.onKeyDown = [this](KeyEvent key) {
        if (const auto character = characterOfKey(key); character)
            take(*character);
    };
}

void TypeAhead::take(char character) {
    if (typed_.empty() && character == ' ')
        return;
    NodeTree& tree = window_.liveTree();
    Node* start = tree.selected() == nullptr ? nullptr : messageOf(rootOf(*tree.selected())).message;
    typed_ += character;
    // The message that is shown may still begin so; a first letter goes on to another one.
    Node* target = find(typed_, typed_.size() > 1 || start == nullptr ? start : start->next());
    if (target == nullptr && typed_.size() > 1) {
        typed_ = character;
        target = find(typed_, start == nullptr ? nullptr : start->next());
    }
    endAfterPause();
    if (target == nullptr)
        typed_.clear();
    else if (target != tree.selected())
        reachNode(window_.tvwEdit, *target);
}

Node* TypeAhead::find(const std::string& typed, Node* from) {
    const NodeTree& tree = window_.liveTree();
    for (Node* node = from; node != nullptr; node = node->next()) {
        if (beginsSo(*node, typed))
            return node;
    }
    for (Node* node = tree.firstRoot(); node != from && node != nullptr; node = node->next()) {
        if (beginsSo(*node, typed))
            return node;
    }
    return nullptr;
}

void TypeAhead::endAfterPause() {
    window_.desktop().screen().callLater(kPause, [this, keys = ++keys_] {
        if (keys == keys_)
            typed_.clear();
    });
}

} // namespace zb
