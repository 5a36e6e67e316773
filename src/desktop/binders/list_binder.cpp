#include "desktop/binders/list_binder.h"

#include "desktop/binders/dragging.h"
#include "desktop/models/list_model.h"
#include "desktop/units.h"
#include "platform/stores/list.h"

#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTreeView>

#include <algorithm>
#include <utility>

namespace zb {

namespace {

KeyEvent modifiersOf(const QMouseEvent& event) {
    int shift = event.modifiers().testFlag(Qt::ShiftModifier) ? kShiftKey : 0;
    if (event.modifiers().testFlag(Qt::ControlModifier))
        shift |= kControlKey;
    return {0, shift};
}

UserHands::MouseButton buttonOf(const QMouseEvent& event) {
    return event.button() == Qt::RightButton ? UserHands::MouseButton::Right : UserHands::MouseButton::Left;
}

QStringList textsOf(const List& list) {
    QStringList texts;
    for (const ListRow* row : list.selectedRows())
        texts << QString::fromStdString(row->text());
    return texts;
}

} // namespace

ListBinder::ListBinder(List& list, QTreeView& view, Binding& binding)
    : Binder(list, view, binding), list_(list), view_(view),
      model_(new ListModel(list, binding.pictures, this)) {
    view_.setModel(model_);
    view_.setRootIsDecorated(false);
    view_.setUniformRowHeights(true);
    view_.setAllColumnsShowFocus(true);
    view_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_.setSelectionMode(list.selection() == List::Selection::Many ? QAbstractItemView::ExtendedSelection
                                                                     : QAbstractItemView::SingleSelection);
    view_.viewport()->installEventFilter(this);
    view_.viewport()->setAcceptDrops(static_cast<bool>(list.onDrop));
    view_.header()->setSectionsClickable(true);
    view_.header()->setHighlightSections(false);
    connect(view_.header(), &QHeaderView::sectionClicked, this, [this](int section) {
        Target target = Target::whole(list_);
        target.column = static_cast<std::size_t>(section);
        hands().click(target);
    });
    start();
    flush();
}

void ListBinder::show(Change change) {
    if (change == Change::Rows && !rowsAreOld_) {
        // A library comes in row by row; the view reads them again once, when they are all there.
        rowsAreOld_ = true;
        QMetaObject::invokeMethod(
            this, [this] { flush(); }, Qt::QueuedConnection);
    } else if (change == Change::Selection && !rowsAreOld_) {
        showSelection();
    }
}

void ListBinder::flush() {
    if (!std::exchange(rowsAreOld_, false))
        return;
    const Showing showing(binding());
    rereadRows();
    showColumns();
    showSelection();
}

void ListBinder::rereadRows() {
    const int scrolled = view_.verticalScrollBar()->value();
    model_->reread();
    view_.verticalScrollBar()->setValue(scrolled);
}

void ListBinder::showColumns() {
    const auto& columns = list_.columns();
    view_.setHeaderHidden(columns.empty());
    // Widths are the user's once a column stands.
    for (std::size_t i = shownColumns_; i < columns.size(); ++i) {
        if (columns[i].width > 0)
            view_.header()->resizeSection(static_cast<int>(i), toPixels(columns[i].width));
    }
    shownColumns_ = columns.size();
    view_.header()->setSortIndicatorShown(list_.sorted());
    if (list_.sorted())
        view_.header()->setSortIndicator(list_.sortKey(), Qt::AscendingOrder);
}

void ListBinder::showSelection() {
    QItemSelection selection;
    const auto& rows = list_.shown();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!rows[i]->selected())
            continue;
        const int row = static_cast<int>(i);
        selection.select(model_->index(row, 0), model_->index(row, model_->columnCount() - 1));
    }
    QItemSelectionModel* shown = view_.selectionModel();
    shown->select(selection, QItemSelectionModel::ClearAndSelect);
    const QModelIndex current = model_->indexOf(list_.selected());
    shown->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (current.isValid())
        view_.scrollTo(current);
}

Target ListBinder::targetAt(const QPoint& place) const {
    Target target = Target::whole(list_);
    target.row = model_->rowAt(view_.indexAt(place));
    return target;
}

bool ListBinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view_.viewport())
        return viewportEvent(*event);
    return Binder::eventFilter(watched, event);
}

bool ListBinder::viewportEvent(QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        mousePressed(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = static_cast<QMouseEvent&>(event);
        if (mouse.button() == Qt::LeftButton)
            hands().doublePress(targetAt(mouse.position().toPoint()));
        return true;
    }
    case QEvent::MouseMove:
        mouseMoved(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::MouseButtonRelease:
        mouseReleased(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return drops(event);
    default:
        return false;
    }
}

void ListBinder::mousePressed(const QMouseEvent& event) {
    flush();
    pressedAt_ = event.position().toPoint();
    pressed_ = targetAt(pressedAt_);
    const bool extends = event.button() == Qt::LeftButton && event.modifiers().testFlag(Qt::ShiftModifier);
    const auto refusal = extends && pressed_.row != nullptr
                             ? hands().extendTo(list_, *pressed_.row)
                             : hands().mouseDown(pressed_, buttonOf(event), modifiersOf(event));
    if (!refusal.empty())
        pressed_ = {};
}

void ListBinder::mouseMoved(const QMouseEvent& event) {
    const bool far =
        (event.position().toPoint() - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
    if (!(event.buttons() & Qt::LeftButton) || pressed_.row == nullptr || !far)
        return;
    const Target from = std::exchange(pressed_, {});
    if (const auto data = hands().beginDrag(from))
        runDrag(binding(), view_, *data, textsOf(list_));
}

void ListBinder::mouseReleased(const QMouseEvent& event) {
    const Target target = std::exchange(pressed_, {});
    if (target.control != nullptr)
        hands().mouseUp(target, buttonOf(event), modifiersOf(event));
}

bool ListBinder::drops(QEvent& event) {
    auto& drop = static_cast<QDropEvent&>(event);
    if (!acceptDrag(binding(), drop))
        return true;
    const Target target = targetAt(drop.position().toPoint());
    const DragData data = dragDataOf(binding(), drop);
    if (event.type() == QEvent::Drop)
        hands().drop(data, target);
    else if (event.type() == QEvent::DragMove)
        hands().dragOver(data, target);
    return true;
}

bool ListBinder::keyPressed(QKeyEvent& event) {
    flush();
    return moveByPage(event) || Binder::keyPressed(event);
}

bool ListBinder::moveByPage(QKeyEvent& event) {
    if ((event.key() != Qt::Key_PageDown && event.key() != Qt::Key_PageUp) || list_.count() == 0)
        return false;
    const int height = std::max(1, view_.sizeHintForRow(0));
    const int page = std::max(1, view_.viewport()->height() / height - 1);
    const int here = std::max(1, list_.positionOf(list_.selected()));
    const int wanted = here + (event.key() == Qt::Key_PageDown ? page : -page);
    const int target = std::clamp(wanted, 1, static_cast<int>(list_.count()));
    hands().reach(list_, *list_.shown()[static_cast<std::size_t>(target) - 1]);
    return true;
}

} // namespace zb
