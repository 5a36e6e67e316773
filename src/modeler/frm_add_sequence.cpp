#include "modeler/frm_add_sequence.h"

#include "controls/desktop.h"
#include "platform/text.h"
#include "project/module_state.h"

#include <algorithm>

namespace zb {

namespace {

constexpr int kKeyMinus = 189; // with Shift the underscore

bool isUsedIn(const TRModelStore& model, std::string_view name) {
    const std::string wanted = upper(name);
    return std::any_of(model.TRMessages().begin(), model.TRMessages().end(),
                       [&](const auto& record) { return upper(record->Name()) == wanted; });
}

} // namespace

frmAddSequence::frmAddSequence(Desktop& desktop, ModuleState& state)
    : Window(desktop, "frmAddSequence"), state_(state) {
    setCaption("AddSequence");
    setCancelButton(cmdCancel);
    setDefaultButton(cmdAdd);
    txtSequence.onKeyDown = [this](KeyEvent key) { txtSequence.setLocked(!mayEnter(key)); };
    cmdAdd.onClick = [this] { add(); };
    cmdCancel.onClick = [this] {
        SequenceName.clear();
        hide();
    };
}

void frmAddSequence::requestSequenceName(const Sequences& sequences) {
    SequenceName.clear();
    sequences_ = &sequences;
    txtSequence.setText("");
    txtSequence.setLocked(false); // the last key may have locked it
    setFirstFocus(txtSequence);
    showModal();
}

// A name begins with a letter and continues with letters, digits and underscores, so that an XML element can
// have it.
bool frmAddSequence::mayEnter(KeyEvent key) const {
    if (key.code >= 'A' && key.code <= 'Z')
        return true;
    const bool inside = isDigitKey(key.code) || key.code == kKeyBackspace || key.code == kKeyEnter ||
                        (key.code == kKeyMinus && key.shift == kShiftKey);
    return inside && !txtSequence.text().empty();
}

void frmAddSequence::add() {
    const std::string name = txtSequence.text();
    if (const std::string fault = whyNot(name); !fault.empty()) {
        desktop().showBox(fault, BoxIcon::Information);
        // The focus moves the caret to the end, so it is set before the selection.
        txtSequence.setFocus();
        txtSequence.selectAll();
        return;
    }
    SequenceName = trim(name);
    hide();
}

std::string frmAddSequence::whyNot(const std::string& name) const {
    // A head row has no transaction name, so that only a blank name is found here: two sequences may share a
    // name.
    const std::string trimmedName = upper(trim(name));
    for (const SequenceRow& row : sequences_->rows()) {
        if (row.isHead() && upper(row.transactionName) == trimmedName)
            return name + " was already used in Sequence!";
    }
    if (state_.SECSMessageStore->getByName(name) != nullptr)
        return name + " was already used in SECSMessages!";
    if (state_.TRModelStore && isUsedIn(*state_.TRModelStore, name))
        return name + " was already used in TRMessages!";
    return {};
}

} // namespace zb
