#pragma once

#include "controls/desktop.h"
#include "controls/window.h"
#include "model/statement_text.h"
#include "modeler/statement_tree.h"
#include "support/silent_screen.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace zb::test {

/// A statement tree without a window.
class StatementDesk {
public:
    StatementDesk() { statements.initStatementTree(); }

    Node& root() { return *statements.root(); }
    /// A bare statement, or one with its condition: `if ({A} == 1):`.
    Node& add(Node& parent, std::string_view type, std::string_view condition = {}) {
        Node& node = *statements.addStatement(parent, type).node;
        if (!condition.empty())
            node.setText(std::string(type) + " " + std::string(condition) + ":");
        return node;
    }
    /// One line per node, two blanks per level: the picture, ">" and the text.
    std::string shape() { return shapeBelow(root(), 0); }

private:
    SilentScreen screen_;
    Desktop desktop_{screen_};
    Window window_{desktop_, "frmTest"};
    Tree tree_{window_, "tvwStatement"};

    static std::string shapeBelow(const Node& node, std::size_t level) {
        std::string lines;
        for (const Node* child = node.child(); child != nullptr; child = child->next())
            lines += std::string(2 * level, ' ') + child->image() + ">" + child->text() + "\n" +
                     shapeBelow(*child, level + 1);
        return lines;
    }

public:
    StatementTree statements{tree_};
    NodeTree& nodes() { return tree_.nodes(); }
    Tree& tree() { return tree_; }
};

} // namespace zb::test
