#pragma once

class QMainWindow;
class QWidget;

namespace zb {

class Window;
struct Binding;

/// For the Find window: F3 continues the search from it and from the main window; without a search it opens
/// the Find window. Other windows get nothing.
void addSearchKey(Window& window, QWidget& form, QMainWindow& main, Binding& binding);

} // namespace zb
