#pragma once

#include "desktop/binders/binder.h"

#include <QComboBox>

namespace zb {

class Combo;
class ComboModel;

/// A combo box that shows its own text, which need not be among the entries.
class StoreComboBox final : public QComboBox {
public:
    using QComboBox::QComboBox;
    void setShownText(const QString& text);
    const QString& shownText() const { return shownText_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QString shownText_;
};

/// Chosen rows go to the store; a letter opens the list and searches there.
class ComboBinder final : public Binder {
public:
    ComboBinder(Combo& combo, StoreComboBox& box, Binding& binding);

    void flush() override;

private:
    void show(Change change) override;
    bool keyPressed(QKeyEvent& event) override;

    Combo& combo_;
    StoreComboBox& box_;
    ComboModel* model_;
    bool rowsAreOld_ = false;
};

} // namespace zb
