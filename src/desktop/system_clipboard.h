#pragma once

#include "controls/screen.h"

namespace zb {

/// The clipboard that all programs share, as the toolkit has it. Nodes have a format of their own, which
/// other programs pass over.
/// @{
void putOnSystemClipboard(const SharedClipboard& contents);
SharedClipboard systemClipboard();
/// @}

} // namespace zb
