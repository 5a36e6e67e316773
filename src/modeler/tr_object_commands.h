#pragma once

namespace zb {

class frmTRModeler;
class ListRow;

/// The actions of the user in the table of messages or items: presses and the commands of its pop-up. The
/// commands use the current message and item of the window.
class TRObjectCommands {
public:
    explicit TRObjectCommands(frmTRModeler& window);

private:
    /// Whether the table shows the root of the current tree.
    bool showsMessages() const;
    void press(ListRow* row);
    /// Makes the row's item the current one, and shows the row in the open dialogs.
    void follow(const ListRow& row);
    /// Opens the dialog that changes what the row shows.
    void edit(const ListRow& row);
    void openPopup();
    void setPopupState(bool messages, bool row);
    void popupClosed();

    void wireCommands();
    void addMessage();
    void updateMessage();
    void deleteMessage();
    void deleteItem();

    frmTRModeler& window_;
    /// The pop-up has set the current message to that of its row, instead of the root.
    bool messageOfRow_ = false;
};

} // namespace zb
