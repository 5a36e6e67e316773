#pragma once

#include "controls/list.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"

#include <string>
#include <string_view>

namespace zb {

class Combo;
class SECSMessageRecord;

/// Asks for the array index of a data item that lies inside variable lists.
class frmArrayInfo final : public Window {
public:
    explicit frmArrayInfo(Desktop& desktop);

    Label lblItem{*this, "lblItem", "Item"};
    TextField txtItem{*this, "txtItem"};
    List lvwArray{*this, "lvwArray"};
    /// Lies over the cell that is being edited.
    TextField txtValue{*this, "txtValue"};
    Button cmdOK{*this, "cmdOK", "&OK"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};

    /// Returns when the dialog has closed; an item without a dimension closes it unseen.
    void requestArrayIndex(const SECSMessageRecord& message, std::string_view name);
    /// The index text ("[1;2]"); empty when there is none or the user cancelled.
    std::string ArrayInfo;
    /// The number of dimensions that were found.
    int Dimension = 0;
    /// The row whose cell `txtValue` lies over; null for none.
    ListRow* editedRow() const { return editedRow_; }

private:
    void showRows();
    void editCell(ListRow& row);
    void valueChanged();
    void cutToNumber();
    void accept();
    void cancel();

    ListRow* editedRow_ = nullptr;
    bool cutting_ = false;
};

/// Asks for the index of the data item that was chosen in a combo. The combo's text gets the index behind
/// it; it is emptied when the user gave none, so that an item that needs an index cannot stand without. A
/// blank text asks nothing, and a null message leaves the combo as it is.
void askForArrayIndex(Combo& combo, const SECSMessageRecord* message, frmArrayInfo& dialog);

} // namespace zb
