#pragma once

#include "controls/list.h"
#include "controls/tree.h"
#include "controls/user_hands.h"
#include "controls/window.h"

#include <algorithm>
#include <string>

// Shared by the files of the user's actions.
namespace zb::hands {

template<typename Store>
Store& as(Control& control) {
    return static_cast<Store&>(control);
}

inline std::string describe(const Control& control) {
    return control.window().name() + "." + control.name();
}

/// Of the target's node; 0 without one.
inline int indexOf(const Target& target) {
    return target.node == nullptr ? 0 : target.node->index();
}

inline bool holds(const List& list, const ListRow* row) {
    return std::any_of(list.rows().begin(), list.rows().end(),
                       [&](const auto& candidate) { return candidate.get() == row; });
}

/// Whether the node with that index still exists after a handler has run.
inline bool isThere(const Target& target, int index) {
    if (target.node != nullptr)
        return as<Tree>(*target.control).nodes().at(index) == target.node;
    return target.row == nullptr || holds(as<List>(*target.control), target.row);
}

} // namespace zb::hands
