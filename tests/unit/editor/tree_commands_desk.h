#pragma once

#include "unit/editor/editor_desk.h"

namespace zb {

/// An editor window whose edit commands a test runs, whatever is selected.
class TreeCommandsTest : public EditorDesk {
public:
    void select(Node* node) { tree().select(node); }
    void run(MenuEntry& entry) {
        // Other tests show which entries a selection enables; the commands check again on their own.
        entry.setEnabled(true);
        click(entry);
    }
    void copyToClipboard(Node& node) {
        select(&node);
        run(window.editEntries.copy);
    }
    StructureEntries& menu = window.editEntries;
};

} // namespace zb
