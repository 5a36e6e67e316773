#include "controls/user_hands.h"

#include "controls/desktop.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/user_hands_parts.h"

namespace zb {

using namespace hands;
using Kind = Control::Kind;

std::optional<DragData> UserHands::beginDrag(const Target& from) {
    Control& control = *from.control;
    if (!stillThere(from))
        return std::nullopt;
    if (control.kind() == Kind::Tree) {
        auto& tree = as<Tree>(control);
        return from.node != nullptr && tree.onDragStart ? tree.onDragStart(*from.node) : std::nullopt;
    }
    if (control.kind() == Kind::List) {
        auto& list = as<List>(control);
        return from.row != nullptr && list.onDragStart ? list.onDragStart() : std::nullopt;
    }
    if (control.onDragData)
        return control.onDragData();
    if (control.kind() != Kind::TextField)
        return std::nullopt;
    std::string selected = as<TextField>(control).selectedText();
    return selected.empty() ? std::nullopt : std::optional(DragData{std::move(selected), &control});
}

UserHands::Refusal UserHands::drag(const Target& from, const Target& to) {
    const UserSteps::Action action(desktop_.steps(), to.control);
    // The press on the source may remove the target.
    const int index = indexOf(to);
    if (Refusal refusal = begin(from); !refusal.empty())
        return refusal;
    pressPart(from, MouseButton::Left, {});
    const std::optional<DragData> data = beginDrag(from);
    if (!data)
        return {};
    return isThere(to, index) ? drop(*data, to) : describe(*to.control) + " has lost the target meanwhile";
}

void UserHands::dragOver(const DragData& data, const Target& to) {
    const UserSteps::Action action(desktop_.steps(), to.control);
    Control& control = *to.control;
    if (!whyNot(control).empty())
        return;
    if (control.kind() == Kind::Tree)
        fire(as<Tree>(control).onDragOver, data, to.node);
    else if (control.kind() == Kind::List)
        fire(as<List>(control).onDragOver, data, to.row);
}

UserHands::Refusal UserHands::drop(const DragData& data, const Target& to) {
    const UserSteps::Action action(desktop_.steps(), to.control);
    desktop_.closePopup();
    Control& control = *to.control;
    if (Refusal refusal = whyNot(control); !refusal.empty())
        return refusal;
    if (control.kind() == Kind::Tree) {
        auto& tree = as<Tree>(control);
        const int index = indexOf(to);
        fire(tree.onDragOver, data, to.node);
        if (isThere(to, index))
            fire(tree.onDrop, data, to.node);
    } else if (control.kind() == Kind::List) {
        auto& list = as<List>(control);
        fire(list.onDragOver, data, to.row);
        if (isThere(to, 0))
            fire(list.onDrop, data, to.row);
    } else if (control.kind() == Kind::TextField && !control.onDropData) {
        return dropOnField(as<TextField>(control), data);
    } else {
        fire(control.onDropData, data);
    }
    return {};
}

// Text that falls on a field is pasted there.
UserHands::Refusal UserHands::dropOnField(TextField& field, const DragData& data) {
    if (data.form != DragData::Form::Text || data.text.empty())
        return {};
    return insertAt(field, field.text().size(), data.text);
}

} // namespace zb
