#pragma once

class QMainWindow;
class QWidget;

namespace zb {

class Window;

/// Whether a visible dialog stays above the other windows of the program.
bool isTopmost(const Window& window);

/// Makes `owner` the owner of a dialog. A dialog is first shown over the middle of its owner; those that work
/// with the modeler's trees leave the trees visible. Later it appears where the user has moved it.
void placeDialog(const Window& window, QWidget& form, QWidget& owner, QMainWindow& main);

/// Makes a window that was not restored from an earlier run as small as the available area of its screen.
void fitOnScreen(QWidget& form);

} // namespace zb
