#pragma once

#include "desktop/binders/binder.h"

#include <QPoint>

class QMouseEvent;
class QTreeView;

namespace zb {

class List;
class ListModel;

/// A list of rows in columns. Clicks, drags and header clicks are the store's; the view shows what it selects
/// and sorts.
class ListBinder final : public Binder {
public:
    ListBinder(List& list, QTreeView& view, Binding& binding);

    void flush() override;

private:
    void show(Change change) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool viewportEvent(QEvent& event);
    bool keyPressed(QKeyEvent& event) override;
    bool moveByPage(QKeyEvent& event);
    void mousePressed(const QMouseEvent& event);
    void mouseMoved(const QMouseEvent& event);
    void mouseReleased(const QMouseEvent& event);
    bool drops(QEvent& event);

    Target targetAt(const QPoint& place) const;
    void rereadRows();
    void showColumns();
    void showSelection();

    List& list_;
    QTreeView& view_;
    ListModel* model_;
    std::size_t shownColumns_ = 0;
    bool rowsAreOld_ = false;
    Target pressed_;
    QPoint pressedAt_;
};

} // namespace zb
