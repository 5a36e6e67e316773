#pragma once

#include <QObject>

class QKeyEvent;
class QLineEdit;
class QTreeView;
class QWidget;

namespace zb {

class ListRow;
class frmArrayInfo;

/// Keeps the field of the array dialog over the edited cell while the list scrolls and its columns move. Keys
/// replace the mouse: a character typed in the list starts to edit a cell, and Enter and the arrows move
/// between cells.
class CellEditor final : public QObject {
public:
    CellEditor(frmArrayInfo& dialog, QWidget& form);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool viewKey(QKeyEvent& event);
    bool lineKey(const QKeyEvent& event);
    void edit(ListRow& row);
    void follow();

    frmArrayInfo& dialog_;
    QTreeView& view_;
    QLineEdit& line_;
    const QWidget* viewport_; // only compared: the view may be half destroyed when its viewport has an event
};

} // namespace zb
