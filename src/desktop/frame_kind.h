#pragma once

#include "controls/window.h"

namespace zb {

/// How a window is framed: the main window, a document inside it, a part of it, or a dialog in front of it.
enum class FrameKind { Main, Document, Part, Dialog };

inline FrameKind kindOf(const Window& window) {
    if (window.name() == "frmMain")
        return FrameKind::Main;
    if (window.name() == "frmWorkbench")
        return FrameKind::Part;
    const bool isDocument = window.name() == "frmSECSEditor" || window.name() == "frmTRModeler" ||
                            window.name() == "frmCompare" || window.name() == "frmRehearsal";
    return isDocument ? FrameKind::Document : FrameKind::Dialog;
}

} // namespace zb
