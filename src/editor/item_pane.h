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

/// The item pane: shows the selected item and writes every change straight back into its Text, which is the
/// only store of an item. With no item selected nothing here changes the tree.
class ItemPane {
public:
    /// Hangs the handlers on txtItemName, txtItemCount, txtInit, chkFix, chkIsItemKey and tbritemType. The
    /// code page is the one by which strings are cut to their lengths.
    ItemPane(EditorControls& window, const CodePage& codePage);

    /// Clears the fields and lets all type buttons up.
    void InitItem();
    /// Rebuilds the Text of the node at the index from the fields, replacing what is unfit; the key mark is
    /// left out. With `keep` 0 txtInit takes the value part.
    void ThisItemChange(int nodeIndex, int keep);
    /// Writes the Text of the node from the fields as they stand.
    void updateItemNodeText(Node& node);
    /// The type token of the button that is down; empty when none is.
    std::string getSelectedItemType() const;
    /// Presses the button of a type token, compared upper-cased; an unknown one leaves all buttons up.
    void selectTypeButton(std::string_view token);
    void resetTypeButtons();

private:
    void wireFields();
    void wireChecks();
    Node* selectedNode() const;
    /// The selected node unless that is a root node.
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
    /// The pane stores into txtInit itself: the text needs no judging.
    bool storingValue_ = false;
};

} // namespace zb
