#pragma once

namespace zb {

/// Lets the windows paint while a command runs that takes long. What the user does meanwhile waits, but for
/// the wish to close a window, which is dropped: no command starts within another one.
void keepPainting();

} // namespace zb
