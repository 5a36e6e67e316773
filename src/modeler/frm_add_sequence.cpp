#include "modeler/frm_add_sequence.h"

#include "modeler/modeler_state.h"

namespace zb {

frmAddSequence::frmAddSequence(ModelerState& state) : Window(state.desktop, "frmAddSequence"), state_(state) {
    setCaption("AddSequence");
    setCancelButton(cmdCancel);
}

void frmAddSequence::requestSequenceName(const List& /*listItems*/) {
    SequenceName.clear();
    showModal();
}

} // namespace zb
