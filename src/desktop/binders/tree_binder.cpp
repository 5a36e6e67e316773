#include "desktop/binders/tree_binder.h"

#include "controls/tree.h"
#include "desktop/colors.h"
#include "desktop/models/node_tree_model.h"
#include "desktop/models/node_tree_view.h"
#include "desktop/shown_text.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace zb {

TreeBinder::TreeBinder(Tree& tree, NodeTreeView& view, Binding& binding)
    : ItemBinder(tree, view, binding), tree_(tree), view_(view),
      model_(new NodeTreeModel(tree, binding.pictures, this)) {
    view_.setNodes(*model_);
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
    if (change == Change::Selection)
        view_.showMarks();
    if (change == Change::Rows)
        view_.filterChanged();
    if (change != Change::State)
        return;
    const OptionalColor& back = tree_.backColor();
    QPalette palette;
    if (back)
        palette.setColor(QPalette::Base, shaded(*back));
    view_.setPalette(palette);
}

Target TreeBinder::targetAt(const QPoint& place) const {
    Target target = Target::whole(tree_);
    target.node = view_.nodeAt(place);
    return target;
}

Target TreeBinder::selectedTarget() const {
    Target target = Target::whole(tree_);
    target.node = tree_.nodes().selected();
    return target;
}

QRect TreeBinder::placeOf(const Target& target) const {
    return view_.visualRect(model_->indexOf(target.node));
}

QStringList TreeBinder::selectedTexts() const {
    const Node* selected = tree_.nodes().selected();
    return selected == nullptr ? QStringList() : QStringList(shownLine(selected->text()));
}

bool TreeBinder::startsDrags() const {
    return static_cast<bool>(tree_.onDragStart);
}

bool TreeBinder::takesDrops() const {
    return static_cast<bool>(tree_.onDrop);
}

bool TreeBinder::takesDoubleClicks() const {
    return static_cast<bool>(tree_.onDoubleClick);
}

bool TreeBinder::keptByView(const QMouseEvent& event) {
    const QPoint place = event.position().toPoint();
    Node* node = view_.nodeAt(place);
    if (event.button() != Qt::LeftButton || node == nullptr || !view_.isOnBox(*node, place))
        return false;
    pressOnBox(*node);
    return true;
}

// A tree that hears of presses hears of one on a box too, as of any other place of the row.
void TreeBinder::pressOnBox(Node& node) {
    Target target = Target::whole(tree_);
    target.node = &node;
    const int index = node.index();
    const QPointer<Binder> alive(this);
    const auto refusal =
        tree_.onMouseDown ? hands().mouseDown(target, UserHands::MouseButton::Left) : hands().focus(tree_);
    if (refusal.empty() && alive && tree_.nodes().at(index) == &node)
        view_.toggle(node);
}

bool TreeBinder::keyPressed(QKeyEvent& event) {
    // Keys that only a screen has: keys of scripts go to the store only.
    const bool byView = event.spontaneous() && (moveByPage(event) || openByKey(event));
    return byView || ItemBinder::keyPressed(event);
}

bool TreeBinder::moveByPage(const QKeyEvent& event) {
    if (event.key() != Qt::Key_PageDown && event.key() != Qt::Key_PageUp)
        return false;
    Node* selected = tree_.nodes().selected();
    const int page = view_.rowsOfPage() - 1;
    Node* target = selected == nullptr
                       ? tree_.nodes().firstRoot()
                       : view_.nodeBeside(*selected, event.key() == Qt::Key_PageDown ? page : -page);
    if (target != nullptr)
        hands().reach(tree_, *target, {0, event.modifiers().testFlag(Qt::ShiftModifier) ? kShiftKey : 0});
    return true;
}

bool TreeBinder::openByKey(const QKeyEvent& event) {
    Node* selected = tree_.nodes().selected();
    const bool opens = event.text() == QLatin1String("+");
    if (selected == nullptr || selected->child() == nullptr || (!opens && event.text() != QLatin1String("-")))
        return false;
    selected->setExpanded(opens);
    return true;
}

} // namespace zb
