#pragma once

#include "desktop/binders/item_binder.h"

class QTreeView;

namespace zb {

class List;
class ListModel;

/// A list of rows in columns. Clicks, drags and header clicks go to the store; the view shows its selection
/// and order.
class ListBinder final : public ItemBinder {
public:
    ListBinder(List& list, QTreeView& view, Binding& binding);

    void flush() override;

private:
    void show(Change change) override;
    bool keyPressed(QKeyEvent& event) override;
    bool moveByPage(const QKeyEvent& event);
    UserHands::Refusal press(const Target& target, const QMouseEvent& event) override;

    Target targetAt(const QPoint& place) const override;
    Target selectedTarget() const override;
    QRect placeOf(const Target& target) const override;
    QStringList selectedTexts() const override;
    bool startsDrags() const override;
    bool takesDrops() const override;
    bool takesDoubleClicks() const override;

    void rereadRows();
    void showColumns();
    void showWidths();
    void forgetWidths();
    void fitLastColumn();
    void rememberWidth(int section, int width);
    void showSelection();

    List& list_;
    QTreeView& view_;
    ListModel* model_;
    QStringList shownColumns_;
    bool rowsAreOld_ = false;
};

} // namespace zb
