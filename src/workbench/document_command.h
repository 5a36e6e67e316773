#pragma once

namespace zb {

class frmWorkbench;

/// Asks for a file and writes the interface document of the open project into it: as Markdown for a name that
/// ends in ".md", else as HTML. A notice says what came of it, and offers to open the file.
void writeInterfaceDocument(const frmWorkbench& workbench);

} // namespace zb
