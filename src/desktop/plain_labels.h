#pragma once

#include <QObject>
#include <QString>

#include <string_view>

namespace zb {

/// A text of a project or library as a tool tip: the beginning, when it is longer than anybody reads.
QString toolTipOf(std::string_view text);

/// Makes every label of the program show its text as it is, also those that Qt makes itself: of tool tips,
/// of message boxes, of file dialogs. Qt otherwise looks for markup in a text, and a name in a project such
/// as `<img src="/dev/zero">` would make the program read that file.
class PlainLabels final : public QObject {
public:
    /// Needs the QApplication and watches it for as long as both live.
    PlainLabels();
    ~PlainLabels() override;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace zb
