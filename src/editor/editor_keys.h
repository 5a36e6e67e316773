#pragma once

#include "controls/key.h"

namespace zb {

class frmSECSEditor;

/// Adds the keys of the editor that are in no menu.
void addEditorKeys(frmSECSEditor& window);

/// The key that presses a button of tbritemType, from 1: Ctrl+1 to Ctrl+0, then Ctrl+Shift+1 to Ctrl+Shift+6.
KeyEvent keyOfType(int button);

} // namespace zb
