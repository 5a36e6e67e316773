#pragma once

#include "controls/key.h"

#include <string>
#include <string_view>

namespace zb {

class CodePage;
class EditorControls;
class Node;
class TextField;
class ToolbarButton;

/// The item pane: shows the selected item and writes every change directly into its Text, the only storage of
/// an item. Without a selected item nothing here changes the tree.
class ItemPane {
public:
    /// Sets the handlers of txtItemName, txtItemCount, txtInit, chkFix, chkIsItemKey and tbritemType. Strings
    /// are cut to their lengths in the code page.
    ItemPane(EditorControls& window, const CodePage& codePage);

    /// Clears the fields and releases all type buttons.
    void InitItem();
    /// Rebuilds the Text of the node at the index from the fields and replaces invalid parts; the key mark is
    /// left out. With `keep` 0 txtInit takes the value part.
    void ThisItemChange(int nodeIndex, int keep);
    /// Writes the Text of the node from the current fields.
    void updateItemNodeText(Node& node);
    /// The type token of the pressed button; empty when none is pressed.
    std::string getSelectedItemType() const;
    /// Presses the button of a type token, compared upper-cased; for an unknown one all buttons are released.
    void selectTypeButton(std::string_view token);
    void resetTypeButtons();

    /// During the lifetime of one, what is set in the fields is only shown: no change of a field, and no end
    /// of typing, changes the tree.
    class OnlyShows {
    public:
        explicit OnlyShows(ItemPane& pane) : shows_(pane.onlyShows_) { shows_ = true; }
        ~OnlyShows() { shows_ = false; }
        OnlyShows(const OnlyShows&) = delete;
        OnlyShows& operator=(const OnlyShows&) = delete;

    private:
        bool& shows_;
    };

private:
    /// Names the step of a change that one of the fields makes; keys in one field are one step.
    void nameStep(const TextField& field, Node& node);
    void wireFields();
    void wireChecks();
    Node* selectedNode() const;
    /// The selected node, unless it is a root node.
    Node* selectedItem() const;

    void nameTyped();
    void countTyped();
    void giveBack(TextField& field, std::string_view text, Node& node);
    void keyReleased();
    void valueChanged();
    void valueLeft();
    void storeValueQuietly(std::string_view text);

    void typeClicked(ToolbarButton& button);
    void fitValueToType(std::string_view newType, const Node& node);
    void pressOnly(ToolbarButton& button);
    int countOfField() const;
    std::string countPart() const;
    std::string namePart() const;

    EditorControls& window_;
    const CodePage& codePage_;
    /// The pane itself sets txtInit: the text needs no check.
    bool storingValue_ = false;
    bool onlyShows_ = false;
};

} // namespace zb
