#pragma once

#include <QAbstractTableModel>

namespace zb {

class List;
class ListRow;
class Pictures;

/// The rows of a list store in display order, as a model.
class ListModel final : public QAbstractTableModel {
public:
    ListModel(const List& store, const Pictures& pictures, QObject* parent)
        : QAbstractTableModel(parent), store_(store), pictures_(pictures) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Null when there is no row.
    ListRow* rowAt(const QModelIndex& index) const;
    QModelIndex indexOf(const ListRow* row) const;
    /// Rows or columns have changed.
    void reread();

private:
    QString toolTip(const ListRow& row, std::size_t column) const;

    const List& store_;
    const Pictures& pictures_;
};

} // namespace zb
