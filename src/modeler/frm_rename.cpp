#include "modeler/frm_rename.h"

#include "controls/desktop.h"
#include "platform/text.h"

#include <utility>

namespace zb {

frmRename::frmRename(Desktop& desktop) : Window(desktop, "frmRename") {
    setCancelButton(cmdCancel);
    setDefaultButton(cmdRename);
    // The focus moves the caret to the end; the old name is there to be replaced.
    txtNewName.onGotFocus = [this] { txtNewName.selectAll(); };
    cmdRename.onClick = [this] { accept(); };
    cmdCancel.onClick = [this] { hide(); };
}

std::string frmRename::requestName(std::string caption, const std::string& name, FaultOf faultOf) {
    setCaption(std::move(caption));
    name_ = name;
    chosen_.clear();
    faultOf_ = std::move(faultOf);
    txtNewName.setText(name);
    setFirstFocus(txtNewName);
    showModal();
    return std::exchange(chosen_, {});
}

void frmRename::accept() {
    const std::string name = trim(txtNewName.text());
    const std::string fault = name.empty() ? "A name is needed." : name == name_ ? "" : faultOf_(name);
    if (!fault.empty()) {
        desktop().showBox(fault, BoxIcon::Information);
        txtNewName.setFocus();
        txtNewName.selectAll();
        return;
    }
    if (name != name_)
        chosen_ = name;
    hide();
}

} // namespace zb
