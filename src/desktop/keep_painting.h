#pragma once

class QWidget;

namespace zb {

/// Paints the windows while a long command runs. Input of the user is delayed, except for requests to close a
/// window, which are dropped: no command starts within another one. The user can use the window `usable`, if
/// there is one; it is modal.
void keepPainting(const QWidget* usable = nullptr);

} // namespace zb
