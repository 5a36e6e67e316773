#pragma once

#include "platform/tree/color.h"

#include <string>
#include <vector>

namespace zb {

class Control;
class Tree;
class Window;

/// What a dialog shows: the texts, choices, rows and nodes of its controls, and which of them can be used.
class DialogContents {
public:
    /// Reads the window. Menus are left out, and so are the controls named here.
    DialogContents(const Window& window, const std::vector<const Control*>& leftOut);

    /// Shows all of it in the same window again. Changes are reported as those of the program are.
    void showIn(Window& window) const;

    /// Whether the user entered the same: texts, choices, rows and the texts of nodes. `besides` lists fields
    /// that the dialog fills by itself.
    bool holdsSameAs(const DialogContents& other, const std::vector<const Control*>& besides) const;

private:
    struct ShownNode {
        int level = 0;
        std::string text;
        std::string key;
        std::string image;
        OptionalColor backColor;
        bool bold = false;
        bool expanded = false;
        bool selected = false;
    };
    struct ShownRow {
        std::string key;
        std::vector<std::string> cells;

        bool operator==(const ShownRow&) const = default;
    };
    struct ShownButton {
        int value = 0;
        std::string picture;
    };
    struct Part {
        const Control* control = nullptr;
        bool enabled = true;
        bool visible = true;
        std::string caption;
        bool on = false;                  // check box, option
        std::string text;                 // text field, label, combo
        std::vector<std::string> entries; // combo
        std::vector<ShownRow> rows;       // list
        std::vector<ShownNode> nodes;     // tree, from the top down
        std::vector<ShownButton> buttons; // toolbar
    };

    static Part read(const Control& control);
    static void show(const Part& part, Control& control);
    static std::vector<ShownNode> nodesOf(const Tree& tree);
    static void showNodes(const std::vector<ShownNode>& nodes, Tree& tree);
    static bool sameEntries(const Part& one, const Part& other);

    std::string caption_;
    std::vector<Part> parts_;
};

} // namespace zb
