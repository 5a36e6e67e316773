#include "modeler/modeler_controls.h"

namespace zb {

ModelerControls::ModelerControls(Desktop& desktop, ProjectCommands& commands)
    : Window(desktop, "frmTRModeler"), menus(*this, commands) {
    mnuAddTRObjTRItem.withSeparatorAbove();
    mnuAddTRItem.withSeparatorAbove();
    mnuRemoveErrorsRcvTRMsg.withSeparatorAbove();
    mnuRemoveErrorsSndTRMsg.withSeparatorAbove();
    lvwSequence.addColumn("SeqNo", 1500);
    lvwSequence.addColumn("Direction", 1500);
    lvwSequence.addColumn("TransactionName", 3000);
}

} // namespace zb
