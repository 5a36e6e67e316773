#pragma once

#include "controls/menu.h"

#include <string>

namespace zb {

class frmResult;
class frmWorkbench;

/// The folder that the generator wrote: a notice with a button opens it, and in the result window the pop-up
/// of the text or Ctrl+Enter.
class GeneratedFolder {
public:
    GeneratedFolder(frmWorkbench& workbench, frmResult& result);

    /// Takes the output of a run: the folder is that of a line "Written: FOLDER". Without such a line, or
    /// such a folder, there is nothing to open.
    void show(const std::string& output);

    PopupMenu mnuGeneratedMore;
    MenuEntry mnuOpenGenerated;

private:
    void open() const;

    frmWorkbench& workbench_;
    std::string folder_;
};

} // namespace zb
