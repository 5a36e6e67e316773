#include "desktop/models/combo_model.h"

#include "controls/combo.h"
#include "desktop/qt_text.h"
#include "desktop/shown_text.h"

namespace zb {

int ComboModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(store_.entries().size());
}

QVariant ComboModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= store_.entries().size())
        return {};
    const std::string& entry = store_.entries()[row];
    switch (role) {
    case Qt::DisplayRole:
        return shownLine(entry);
    case Qt::EditRole:
        return toQt(entry);
    case kNoteRole:
        return store_.noteOf ? toQt(store_.noteOf(entry)) : QString();
    case Qt::AccessibleDescriptionRole:
        return data(index, kNoteRole);
    default:
        return {};
    }
}

void ComboModel::reread() {
    beginResetModel();
    endResetModel();
}

} // namespace zb
