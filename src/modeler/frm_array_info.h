#pragma once

#include "controls/list.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {

class Combo;
class SECSMessageRecord;

/// Asks for the array index of a data item that is inside variable lists.
class frmArrayInfo final : public Window {
public:
    explicit frmArrayInfo(Desktop& desktop);

    Label lblItem{*this, "lblItem", "Item"};
    TextField txtItem{*this, "txtItem"};
    List lvwArray{*this, "lvwArray"};
    /// Placed over the edited cell.
    TextField txtValue{*this, "txtValue"};
    Button cmdOK{*this, "cmdOK", "&OK"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};

    /// Returns when the dialog has closed; for an item without a dimension it is not shown.
    void requestArrayIndex(const SECSMessageRecord& message, std::string_view name);
    /// The index text ("[1;2]"); empty when there is none or the user cancelled.
    std::string ArrayInfo;
    /// The number of dimensions that were found.
    int Dimension = 0;
    /// The row of the cell under `txtValue`; null for none.
    ListRow* editedRow() const { return editedRow_; }

private:
    void showRows();
    std::string listOf(const ListRow& row) const;
    void editCell(ListRow& row);
    void valueChanged();
    void cutToNumber();
    void accept();
    void cancel();

    ListRow* editedRow_ = nullptr;
    std::vector<std::string> lists_; ///< around the data item, from the outermost on
    bool cutting_ = false;
};

/// Asks for the index of the data item chosen in a combo. The index is appended to the combo's text; without
/// one the text is cleared, since an item that needs an index cannot be used without it. A blank text asks
/// nothing, and a null message leaves the combo unchanged.
void askForArrayIndex(Combo& combo, const SECSMessageRecord* message, frmArrayInfo& dialog);

} // namespace zb
