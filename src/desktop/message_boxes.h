#pragma once

#include "controls/screen.h"

#include <memory>

class QMessageBox;
class QString;
class QWidget;

namespace zb {

/// Converts a box of the program to a Qt box, ready to be shown, and back from its buttons.
std::unique_ptr<QMessageBox> makeBox(const Box& box, QWidget* parent);
Answer answerOf(const QMessageBox& box, int button);

/// All wait for the user. The folder dialog has the caption on its button. The empty text means cancelled.
Answer askBox(const Box& box, QWidget* parent);
std::string askFile(const FileDialog& dialog, QWidget* parent);
/// It starts in `start`, or in the user's documents when that is no folder.
std::string askFolder(const QString& title, const QString& button, QWidget* parent, const QString& start);

} // namespace zb
