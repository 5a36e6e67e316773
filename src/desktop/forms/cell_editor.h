#pragma once

#include <QObject>

class QLineEdit;
class QTreeView;

namespace zb {

class frmArrayInfo;

/// Keeps the field of the array dialog over the cell that it edits, while the list scrolls and its columns
/// move.
class CellEditor final : public QObject {
public:
    CellEditor(frmArrayInfo& dialog, QWidget& form);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void follow();

    frmArrayInfo& dialog_;
    QTreeView& view_;
    QLineEdit& line_;
};

} // namespace zb
