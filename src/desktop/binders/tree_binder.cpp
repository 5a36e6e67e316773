#include "desktop/binders/tree_binder.h"

#include "desktop/binders/dragging.h"
#include "desktop/colors.h"
#include "desktop/models/node_tree_model.h"
#include "desktop/models/node_tree_view.h"
#include "desktop/qt_text.h"
#include "platform/stores/tree.h"

#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <utility>

namespace zb {

namespace {

UserHands::MouseButton buttonOf(const QMouseEvent& event) {
    return event.button() == Qt::RightButton ? UserHands::MouseButton::Right : UserHands::MouseButton::Left;
}

} // namespace

TreeBinder::TreeBinder(Tree& tree, NodeTreeView& view, Binding& binding)
    : Binder(tree, view, binding), tree_(tree), view_(view),
      model_(new NodeTreeModel(tree, binding.pictures, this)) {
    view_.setNodes(*model_);
    view_.viewport()->installEventFilter(this);
    view_.viewport()->setAcceptDrops(true);
    start();
}

TreeBinder::~TreeBinder() {
    view_.forgetNodes();
    if (abandoned())
        return;
    tree_.setListener(nullptr);
    tree_.onReplaced = nullptr;
}

void TreeBinder::show(Change change) {
    if (change != Change::State)
        return;
    const OptionalColor& back = tree_.backColor();
    QPalette palette;
    if (back)
        palette.setColor(QPalette::Base, toQt(*back));
    view_.setPalette(palette);
}

bool TreeBinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view_.viewport())
        return viewportEvent(*event);
    return Binder::eventFilter(watched, event);
}

bool TreeBinder::viewportEvent(QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        mousePressed(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = static_cast<QMouseEvent&>(event);
        const Target target = targetAt(mouse.position().toPoint());
        if (target.node != nullptr && view_.isOnBox(*target.node, mouse.position().toPoint()))
            view_.toggle(*target.node);
        else if (mouse.button() == Qt::LeftButton)
            hands().doublePress(target);
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

Target TreeBinder::targetAt(const QPoint& place) const {
    Target target = Target::whole(tree_);
    target.node = view_.nodeAt(place);
    return target;
}

void TreeBinder::mousePressed(const QMouseEvent& event) {
    pressedAt_ = event.position().toPoint();
    const Target target = targetAt(pressedAt_);
    if (target.node != nullptr && event.button() == Qt::LeftButton &&
        view_.isOnBox(*target.node, pressedAt_)) {
        if (hands().focus(tree_).empty())
            view_.toggle(*target.node);
        return;
    }
    pressed_ = target;
    pressedIndex_ = target.node == nullptr ? 0 : target.node->index();
    if (!hands().mouseDown(target, buttonOf(event)).empty())
        pressed_ = {};
}

void TreeBinder::mouseMoved(const QMouseEvent& event) {
    const bool far =
        (event.position().toPoint() - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
    if (!(event.buttons() & Qt::LeftButton) || pressed_.node == nullptr || !far)
        return;
    const Target from = std::exchange(pressed_, {});
    const auto data = hands().beginDrag(from);
    if (!data)
        return;
    const QString text = tree_.nodes().at(pressedIndex_) == from.node ? toQt(from.node->text()) : QString();
    runDrag(binding(), view_, *data, {text});
}

void TreeBinder::mouseReleased(const QMouseEvent& event) {
    const Target target = std::exchange(pressed_, {});
    if (target.control != nullptr)
        hands().mouseUp(target, buttonOf(event));
}

bool TreeBinder::drops(QEvent& event) {
    auto& drop = static_cast<QDropEvent&>(event);
    if (!tree_.onDrop || !acceptDrag(binding(), drop)) {
        drop.ignore();
        return true;
    }
    const QPoint place = drop.position().toPoint();
    const DragData data = dragDataOf(binding(), drop);
    if (event.type() == QEvent::Drop) {
        hands().drop(data, targetAt(place));
    } else if (event.type() == QEvent::DragMove) {
        scrollAtEdge(place);
        hands().dragOver(data, targetAt(place));
    }
    return true;
}

// A drag reaches what is out of view by staying near an edge.
void TreeBinder::scrollAtEdge(const QPoint& place) {
    constexpr int kEdge = 12;
    if (place.y() < kEdge)
        view_.verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepSub);
    else if (place.y() > view_.viewport()->height() - kEdge)
        view_.verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
}

bool TreeBinder::keyPressed(QKeyEvent& event) {
    return moveByPage(event) || openByKey(event) || Binder::keyPressed(event);
}

bool TreeBinder::moveByPage(QKeyEvent& event) {
    if (event.key() != Qt::Key_PageDown && event.key() != Qt::Key_PageUp)
        return false;
    Node* selected = tree_.nodes().selected();
    const int page = view_.rowsOfPage() - 1;
    Node* target = selected == nullptr
                       ? tree_.nodes().firstRoot()
                       : view_.nodeBeside(*selected, event.key() == Qt::Key_PageDown ? page : -page);
    if (target != nullptr)
        hands().reach(tree_, *target);
    return true;
}

bool TreeBinder::openByKey(QKeyEvent& event) {
    Node* selected = tree_.nodes().selected();
    const bool opens = event.text() == QLatin1String("+");
    if (selected == nullptr || selected->child() == nullptr || (!opens && event.text() != QLatin1String("-")))
        return false;
    selected->setExpanded(opens);
    return true;
}

} // namespace zb
