#pragma once

namespace zb {

class frmTRModeler;
class ListRow;

/// What the user does in the table of messages or items: presses and the commands of its pop-up. The commands
/// act on the current message and item of the window.
class TRObjectCommands {
public:
    explicit TRObjectCommands(frmTRModeler& window);

private:
    /// Whether the table is that of the current tree's root.
    bool showsMessages() const;
    void press(ListRow* row);
    /// Takes up the row's item, and shows the row in the open dialogs.
    void follow(const ListRow& row);
    void openPopup();
    void setPopupState(bool messages, bool row);
    void popupClosed();

    void wireCommands();
    void addMessage();
    void updateMessage();
    void deleteMessage();
    void deleteItem();

    frmTRModeler& window_;
    /// The pop-up has set the current message to its row's, in place of the root.
    bool messageOfRow_ = false;
};

} // namespace zb
