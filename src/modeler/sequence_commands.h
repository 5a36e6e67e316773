#pragma once

#include "controls/key.h"

namespace zb {

class frmAddSequence;
class frmTRModeler;
class ListRow;
struct DragData;

/// The actions of the user in the list of sequences: presses, the commands of its pop-up, and the drops that
/// build a sequence.
class SequenceCommands {
public:
    SequenceCommands(frmTRModeler& window, frmAddSequence& addDialog);

private:
    /// Selects the row under the pointer and removes its error mark; a press outside of all rows selects
    /// none.
    void press(ListRow* row);
    void openPopup();
    void keyDown(KeyEvent key);
    /// Opens the dialog of the message that the row names.
    void edit(const ListRow& row);
    void addSequence();
    void deleteRow();
    void dragOver(ListRow* row);
    void drop(const DragData& data, ListRow* row);

    frmTRModeler& window_;
    frmAddSequence& addDialog_;
};

} // namespace zb
