#pragma once

#include <QAbstractListModel>

namespace zb {

class Combo;

/// The entries of a combo store, as a model.
class ComboModel final : public QAbstractListModel {
public:
    /// What is shown after an entry.
    static constexpr int kNoteRole = Qt::UserRole;

    explicit ComboModel(const Combo& store, QObject* parent) : QAbstractListModel(parent), store_(store) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// The entries have changed.
    void reread();

private:
    const Combo& store_;
};

} // namespace zb
