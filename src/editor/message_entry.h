#pragma once

namespace zb {

class frmSECSEditor;

/// Entry of messages by the keyboard alone, and steps from message to message.
class MessageEntry {
public:
    explicit MessageEntry(frmSECSEditor& window) : window_(window) {}

    /// Empties the message pane for a new message; the keyboard goes to the stream.
    void begin();
    /// The command Add; the new message is then selected, and the keyboard goes to the tree. It stays in the
    /// fields when they are refused.
    void add();
    /// Ends the entry: adds what was begun, or else changes the selected message; the keyboard goes to the
    /// tree.
    void finish();

    /// Select and show another message. From an item the message before is its own.
    /// @{
    void goToPrevious();
    void goToNext();
    /// @}

private:
    frmSECSEditor& window_;
};

} // namespace zb
