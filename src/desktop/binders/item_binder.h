#pragma once

#include "desktop/binders/binder.h"

#include <QPoint>
#include <QRect>
#include <QStringList>

class QAbstractItemView;
class QContextMenuEvent;
class QMouseEvent;

namespace zb {

/// A frame around a view that has the keyboard, which an empty list or a tree without a selection could not
/// show otherwise.
class FocusMark final : public QWidget {
public:
    explicit FocusMark(QWidget& view);

private:
    void paintEvent(QPaintEvent* event) override;
};

/// Common to lists and trees: the mouse, drags and drops, and the keys that replace the mouse.
class ItemBinder : public Binder {
protected:
    ItemBinder(Control& control, QAbstractItemView& view, Binding& binding);

    virtual Target targetAt(const QPoint& place) const = 0;
    /// The selected node or row, or the control as a whole without one.
    virtual Target selectedTarget() const = 0;
    /// The rectangle of a node or row in the viewport.
    virtual QRect placeOf(const Target& target) const = 0;
    /// The text below the pointer during a drag of the selection.
    virtual QStringList selectedTexts() const = 0;
    virtual bool startsDrags() const = 0;
    virtual bool takesDrops() const = 0;
    virtual bool takesDoubleClicks() const = 0;
    /// True when the press was for the view only, as on the expansion box of a node.
    virtual bool keptByView(const QMouseEvent& event);
    virtual UserHands::Refusal press(const Target& target, const QMouseEvent& event);

    bool eventFilter(QObject* watched, QEvent* event) override;
    bool keyPressed(QKeyEvent& event) override;

private:
    bool wantsKey(const QKeyEvent& event) const;
    bool comesBeforeMenu(const QKeyEvent& event) const;
    bool viewportEvent(QEvent& event);
    void mousePressed(const QMouseEvent& event);
    void mouseMoved(const QMouseEvent& event);
    bool isDrag(const QPoint& place) const;
    void mouseReleased(const QMouseEvent& event);
    void pressedTwice(const QMouseEvent& event);
    bool drops(QEvent& event);
    void scrollAtEdge(const QPoint& place);
    bool dragByKey(const QKeyEvent& event);
    bool mouseByKey(const QKeyEvent& event);
    void openPopupByKey();

    QAbstractItemView& view_;
    QWidget& focusMark_; // the view owns it
    Target pressed_;     // receives the release
    Target draggable_;   // while the button is pressed on it
    QPoint pressedAt_;
};

} // namespace zb
