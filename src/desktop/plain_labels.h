#pragma once

#include <QObject>
#include <QString>

#include <string_view>

namespace zb {

/// A text of a project or library as a tool tip: the beginning, when it is longer than anybody reads.
QString toolTipOf(std::string_view text);

/// Makes every label of the program show its text as plain text, including those that Qt creates: of tool
/// tips, of message boxes, of file dialogs. Qt otherwise searches a text for markup, and a name in a project
/// such as `<img src="/dev/zero">` would make the program read that file.
class PlainLabels final : public QObject {
public:
    /// Needs the QApplication and watches it for as long as both live.
    PlainLabels();
    ~PlainLabels() override;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace zb
