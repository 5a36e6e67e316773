#pragma once

#include <QWidget>

#include <memory>
#include <string>

namespace zb {

class Window;

/// The form that lays out a window of that name; an empty one for a window that has none.
std::unique_ptr<QWidget> makeForm(const std::string& window);

/// What a form takes beyond its layout, once its widgets are bound.
void finishForm(Window& window, QWidget& form);

} // namespace zb
