#pragma once

class QApplication;

namespace zb::test {

enum class Shade { Light, Dark };

/// The same look on every machine: one style, one font size, a palette of light or of dark.
void dress(QApplication& application, Shade shade);

} // namespace zb::test
