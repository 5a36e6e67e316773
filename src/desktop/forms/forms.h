#pragma once

#include <QWidget>

#include <memory>
#include <string>

namespace zb {

class Window;

/// The form that lays out the window with that name; an empty one for a window that has none.
std::unique_ptr<QWidget> makeForm(const std::string& window);

/// Adds what a form needs beyond its layout, after its widgets are bound.
void finishForm(Window& window, QWidget& form);

} // namespace zb
