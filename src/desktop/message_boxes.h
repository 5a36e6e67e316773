#pragma once

#include "controls/screen.h"

#include <memory>

class QMessageBox;
class QString;
class QWidget;

namespace zb {

/// A box of the program as a Qt one, ready to be shown, and back from its buttons.
std::unique_ptr<QMessageBox> makeBox(const Box& box, QWidget* parent);
Answer answerOf(const QMessageBox& box, int button);

/// All wait for the user. A folder is asked for with a dialog whose button bears the caption; the empty text
/// means none.
Answer askBox(const Box& box, QWidget* parent);
std::string askFile(const FileDialog& dialog, QWidget* parent);
std::string askFolder(const QString& title, const QString& button, QWidget* parent);

} // namespace zb
