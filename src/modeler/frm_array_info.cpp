#include "modeler/frm_array_info.h"

#include "controls/combo.h"
#include "controls/desktop.h"
#include "model/data_item_address.h"
#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>

namespace zb {

namespace {

/// No realistic number is longer.
constexpr std::size_t kLongestIndex = 64;

std::string withoutLastCharacter(const std::string& text) {
    std::u32string points = codePoints(text);
    points.resize(std::min(points.size() - 1, kLongestIndex));
    return fromCodePoints(points);
}

} // namespace

frmArrayInfo::frmArrayInfo(Desktop& desktop) : Window(desktop, "frmArrayInfo") {
    setCaption("Set Array Item");
    setCancelButton(cmdCancel);
    txtItem.setReadOnly(true);
    txtValue.setVisible(false);
    lvwArray.addColumn("", 800);
    lvwArray.addColumn("Value", 2000);
    lvwArray.toolTipOf = [this](const ListRow& row) { return listOf(row); };
    lvwArray.onMouseUp = [this](int /*button*/, ListRow* row) {
        if (row != nullptr)
            editCell(*row);
    };
    txtValue.onChange = [this] { valueChanged(); };
    txtValue.onLostFocus = [this] { txtValue.setVisible(false); };
    cmdOK.onClick = [this] { accept(); };
    cmdCancel.onClick = [this] { cancel(); };
}

void frmArrayInfo::requestArrayIndex(const SECSMessageRecord& message, std::string_view name) {
    txtItem.setText(name);
    ArrayInfo.clear();
    Dimension = checkDimension(message, name);
    if (Dimension == 0) {
        cancel();
        return;
    }
    lists_ = listsAround(message, name);
    showRows();
    showModal();
}

void frmArrayInfo::showRows() {
    editedRow_ = nullptr;
    txtValue.setVisible(false);
    txtValue.setText("");
    lvwArray.clear();
    for (int number = 1; number <= Dimension; ++number)
        lvwArray.add(std::to_string(number)).setCell(1, "");
    setFirstFocus(lvwArray);
}

// The rows are numbered from 1, from the outermost list on.
std::string frmArrayInfo::listOf(const ListRow& row) const {
    const auto place = static_cast<std::size_t>(lvwArray.positionOf(&row));
    return place == 0 || place > lists_.size() ? std::string() : lists_[place - 1];
}

void frmArrayInfo::editCell(ListRow& row) {
    // The row first: the change of the field is written to the row that is being edited.
    editedRow_ = &row;
    const std::string value = row.cell(1);
    txtValue.setText(value);
    txtValue.setVisible(true);
    txtValue.setFocus();
}

void frmArrayInfo::valueChanged() {
    if (cutting_)
        return;
    if (!txtValue.text().empty() && !isNumeric(txtValue.text()))
        cutToNumber();
    if (editedRow_ != nullptr)
        editedRow_->setCell(1, trim(txtValue.text()));
}

// Each cut is a separate change, which is checked again until a number or nothing remains.
void frmArrayInfo::cutToNumber() {
    cutting_ = true;
    while (!txtValue.text().empty() && !isNumeric(txtValue.text())) {
        desktop().showBox("Insert Numeric Value!", BoxIcon::Critical);
        txtValue.setText(withoutLastCharacter(txtValue.text()));
    }
    cutting_ = false;
    txtValue.setFocus();
    txtValue.selectAll();
}

void frmArrayInfo::accept() {
    std::string indexes;
    for (const auto& row : lvwArray.rows()) {
        if (row->cell(1).empty()) {
            desktop().showBox("Insert Array Index, Please!", BoxIcon::Information);
            ArrayInfo.clear();
            return;
        }
        indexes.append(indexes.empty() ? "[" : ";").append(row->cell(1));
    }
    ArrayInfo = indexes.empty() ? std::string() : indexes + "]";
    hide();
}

void frmArrayInfo::cancel() {
    hide();
}

void askForArrayIndex(Combo& combo, const SECSMessageRecord* message, frmArrayInfo& dialog) {
    const std::string name = trim(combo.text());
    if (name.empty() || message == nullptr)
        return;
    dialog.requestArrayIndex(*message, name);
    if (dialog.Dimension == 0)
        return;
    combo.setText(dialog.ArrayInfo.empty() ? std::string() : combo.text() + dialog.ArrayInfo);
}

} // namespace zb
