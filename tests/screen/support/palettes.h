#pragma once

class QApplication;

namespace zb::test {

enum class Shade { Light, Dark };

/// The same style on every machine: one font size, and a light or a dark palette.
void dress(QApplication& application, Shade shade);

} // namespace zb::test
