#pragma once

#include "controls/key.h"
#include "modeler/sequence_edits.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

class frmAddSequence;
class frmTRModeler;
class ListRow;
struct DragData;

/// The actions of the user in the list of sequences: presses, keys, the commands of its pop-up, and the drops
/// that build a sequence. Commands work on all selected rows.
class SequenceCommands {
public:
    SequenceCommands(frmTRModeler& window, frmAddSequence& addDialog);

    /// Each is one undoable step; nothing happens where nothing changes.
    /// @{
    void moveRows(Step way);
    void duplicateRows();
    /// Removes the rows and selects what comes after them.
    void removeRows();
    /// Asks for another name of the selected sequence.
    void renameSequence();
    /// @}
    /// Whether there is a selected row, and whether one is the head of a sequence.
    /// @{
    bool hasSelection() const;
    bool hasSelectedSequence() const;
    /// @}

private:
    void wireKeys();
    /// The left button has selected rows already. The right button selects the row under the pointer, unless
    /// it is one of the selected ones. The press removes the error mark.
    void press(int button, ListRow* row);
    void openPopup();
    void addSequence();
    void deleteRow();
    /// Opens the dialog of the message that the row names.
    void edit(const ListRow& row);
    std::optional<DragData> dragged();
    void dragOver(ListRow* row);
    void drop(const DragData& data, ListRow* row);
    void dropRows(const DragData& data, const ListRow& row);

    SequenceRows rows() const;
    RowPlaces places() const;
    std::size_t placeOf(const ListRow& row) const;
    /// What the steps call the rows: "sequence StartUp", "sequence row Go", "3 sequence rows".
    std::string nameOf(const RowPlaces& places) const;
    void apply(const std::optional<SequenceEdit>& edit, const std::string& step);
    void select(const RowPlaces& places);
    std::string faultOfName(const std::string& name, std::size_t head) const;

    frmTRModeler& window_;
    frmAddSequence& addDialog_;
    std::vector<const ListRow*> dragged_; ///< the rows of the drag that began last
};

} // namespace zb
