#include "desktop/models/list_model.h"

#include "controls/list.h"
#include "desktop/colors.h"
#include "desktop/pictures/pictures.h"
#include "desktop/plain_labels.h"
#include "desktop/qt_text.h"
#include "desktop/shown_text.h"

#include <QBrush>
#include <QFont>

namespace zb {

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(store_.count());
}

int ListModel::columnCount(const QModelIndex& parent) const {
    // A list without columns shows the texts of its rows.
    return parent.isValid() ? 0 : std::max(1, static_cast<int>(store_.columns().size()));
}

ListRow* ListModel::rowAt(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    return index.isValid() && row < store_.shown().size() ? store_.shown()[row] : nullptr;
}

QModelIndex ListModel::indexOf(const ListRow* row) const {
    const int position = store_.positionOf(row);
    return position == 0 ? QModelIndex() : index(position - 1, 0);
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const ListRow* row = rowAt(index);
    if (row == nullptr)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return shownLine(row->cell(static_cast<std::size_t>(index.column())));
    case Qt::ToolTipRole:
        return toolTip(*row, static_cast<std::size_t>(index.column()));
    case Qt::ForegroundRole:
        return isOrdinary(row->foreColor()) ? QVariant() : QBrush(readable(*row->foreColor()));
    case Qt::DecorationRole:
        return index.column() == 0 && !row->image().empty() ? pictures_.icon(row->image()) : QVariant();
    case Qt::FontRole: {
        QFont font;
        font.setBold(row->bold());
        return row->bold() ? font : QVariant();
    }
    default:
        return {};
    }
}

QString ListModel::toolTip(const ListRow& row, std::size_t column) const {
    const std::string own = store_.toolTipOf ? store_.toolTipOf(row) : std::string();
    return toolTipOf(own.empty() ? row.cell(column) : own);
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const auto column = static_cast<std::size_t>(section);
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || column >= store_.columns().size())
        return {};
    return toQt(store_.columns()[column].text);
}

void ListModel::reread() {
    beginResetModel();
    endResetModel();
}

} // namespace zb
