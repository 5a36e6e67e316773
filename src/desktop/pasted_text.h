#pragma once

#include <QString>

#include <optional>
#include <string>

namespace zb {

class Desktop;

/// What comes into a field from other programs, by the clipboard or a drag: its first line. None when that
/// is longer than 4 million characters, which a notice says: the widget would lay it out for minutes.
std::optional<std::string> pastedLine(const QString& text, Desktop& desktop);
/// Whether a field of several lines takes so many characters; a notice says when it does not.
bool takesPasted(qsizetype characters, Desktop& desktop);

} // namespace zb
