#pragma once

#include <QString>

#include <string_view>

namespace zb {

// Texts of projects, libraries, recordings and paths as the windows show them. Line ends, control characters
// and marks that turn the direction of writing are replaced as on a terminal (`printable`): otherwise a name
// could make a row a thousand lines high, or show "H->E" as "E<-H". Of a text of a megabyte the beginning is
// shown, since Qt lays out all of it whenever it paints.

/// For a row, a label of one line, an entry of a menu.
QString shownLine(std::string_view text);
/// The same for a text of several lines. LF and tabs stay.
QString shownLines(std::string_view text);
/// For the title of a window. Qt takes "[*]" in a title for the place of its own mark of unsaved work.
QString shownTitle(std::string_view text);
/// For a message box: the beginning and the end, when it is longer than a screen.
QString shownInBox(std::string_view text);

} // namespace zb
