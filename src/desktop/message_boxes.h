#pragma once

#include "platform/stores/screen.h"

#include <memory>

class QMessageBox;
class QWidget;

namespace zb {

/// A box of the program as a Qt one, ready to be shown, and back from its buttons.
std::unique_ptr<QMessageBox> makeBox(const Box& box, QWidget* parent);
Answer answerOf(const QMessageBox& box, int button);

/// Both wait for the user.
Answer askBox(const Box& box, QWidget* parent);
std::string askFile(const FileDialog& dialog, QWidget* parent);

} // namespace zb
