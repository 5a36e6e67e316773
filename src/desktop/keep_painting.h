#pragma once

namespace zb {

/// Paints the windows while a long command runs. Input of the user is delayed, except for requests to close a
/// window, which are dropped: no command starts within another one.
void keepPainting();

} // namespace zb
