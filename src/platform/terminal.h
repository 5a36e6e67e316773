#pragma once

namespace zb {

/// Whether standard output is a terminal that can show colours, and the user has not refused them by the
/// variable NO_COLOR.
bool wantsColours();

} // namespace zb
