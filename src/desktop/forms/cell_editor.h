#pragma once

#include <QObject>

class QKeyEvent;
class QLineEdit;
class QTreeView;
class QWidget;

namespace zb {

class ListRow;
class frmArrayInfo;

/// Keeps the field of the array dialog over the cell that it edits, while the list scrolls and its columns
/// move. Keys do what the mouse does: characters that are typed in the list begin a cell, and
/// Enter and the arrows go from cell to cell.
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
