#pragma once

namespace zb {

class frmSECSEditor;
class Node;
class SECSItemRecord;
class SECSMessageRecord;
class StructureEntries;

/// What happens when the user points at the message tree: a click fills the panes and repairs the node on the
/// way, a right click opens the pop-up.
class TreeInteraction {
public:
    explicit TreeInteraction(frmSECSEditor& window);

    /// Shows the selected node in the panes, as a click on it does. Nothing without a selection.
    void nodeClick();
    /// Enables what fits the selected node, in the menu bar. Without a selection nothing changes.
    void updateEditMenuState();

private:
    void rootClick(Node& node);
    void showStream(const SECSMessageRecord& record, Node& node);
    void showFunction(const SECSMessageRecord& record, Node& node);
    void itemClick(Node& node);
    void showMessageOfItem(Node& node);
    void showCount(Node& node, const SECSItemRecord& record);
    void showKeyAndValue(Node& node, const SECSItemRecord& record);
    void setStates(StructureEntries& entries, const Node& node);
    void openPopup();

    frmSECSEditor& window_;
};

} // namespace zb
