#pragma once

#include <string>
#include <string_view>

namespace zb {

class frmSECSEditor;
class Node;

/// The item pane: shows the selected item and writes every change straight back into its Text.
class ItemPane {
public:
    /// Hangs the handlers on txtItemName, txtItemCount, txtInit, chkFix, chkIsItemKey and tbritemType.
    explicit ItemPane(frmSECSEditor& window);

    /// Clears the fields and lets all type buttons up.
    void InitItem();
    /// Rebuilds the Text of the node at the index from the fields, replacing what is unfit. With `keep` 0
    /// txtInit takes the value part.
    void ThisItemChange(int nodeIndex, int keep);
    /// Writes the Text of the node from the fields as they stand.
    void updateItemNodeText(Node& node);
    /// The type token of the button that is down; empty when none is.
    std::string getSelectedItemType() const;
    /// Presses the button of a type token, compared upper-cased; an unknown one leaves all buttons up.
    void selectTypeButton(std::string_view token);
    /// Whether the item stands where its place in the message can vary, so that it cannot be the key.
    bool isKeyForbidden(const Node& node) const;
    void resetTypeButtons();

private:
    frmSECSEditor& window_;
};

} // namespace zb
