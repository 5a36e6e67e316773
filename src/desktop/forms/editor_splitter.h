#pragma once

#include <QObject>
#include <QPoint>

class QLineEdit;
class QMouseEvent;
class QSplitter;

namespace zb {

class frmSECSEditor;

/// Moves the gap between tree and panes through the editor window's own splitter, which refuses a tree column
/// that is too narrow.
class EditorSplitter final : public QObject {
public:
    EditorSplitter(frmSECSEditor& editor, QWidget& form);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool handleEvent(QEvent& event);
    void setPlace();
    void takeRemembered();
    void takeShownWidth();
    QPoint placeOf(const QMouseEvent& mouse) const;
    void showWidth();

    frmSECSEditor& editor_;
    QSplitter& splitter_;
    QWidget& column_;
};

} // namespace zb
