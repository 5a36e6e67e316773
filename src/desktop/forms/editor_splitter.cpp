#include "desktop/forms/editor_splitter.h"

#include "desktop/layout_memory.h"
#include "desktop/units.h"
#include "editor/frm_sec_editor.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QSplitter>

#include <algorithm>

namespace zb {

namespace {

constexpr int kTreeColumn = 1; // of the three parts of the splitter: library, tree and panes
constexpr int kPaneColumn = 2;

} // namespace

EditorSplitter::EditorSplitter(frmSECSEditor& editor, QWidget& form)
    : QObject(&form), editor_(editor),
      splitter_(*form.findChild<QSplitter*>(QStringLiteral("editorSplitter"))),
      column_(*splitter_.widget(kTreeColumn)) {
    // Tree and panes keep the widths that the user gave them; the library takes the rest.
    splitter_.setStretchFactor(0, 1);
    splitter_.setStretchFactor(kTreeColumn, 0);
    splitter_.setStretchFactor(kPaneColumn, 0);
    if (!splitter_.property(kRemembered).toBool())
        splitter_.setSizes({300, toPixels(editor_.treeWidth()), 380});
    column_.installEventFilter(this);
    splitter_.handle(kPaneColumn)->installEventFilter(this);
    auto* width = form.findChild<QLineEdit*>(QStringLiteral("txtTreeWidth"));
    connect(width, &QLineEdit::editingFinished, this, [this] { showWidth(); });
    // The handle of the library moves the left edge of the tree, and so its width.
    connect(&splitter_, &QSplitter::splitterMoved, this, [this] { takeShownWidth(); });
}

bool EditorSplitter::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &column_) {
        if (event->type() == QEvent::Show)
            takeRemembered();
        if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
            setPlace();
        return false;
    }
    return handleEvent(*event);
}

void EditorSplitter::setPlace() {
    Splitter::Column place;
    place.left = toUnits(column_.x());
    place.top = 0;
    place.height = toUnits(column_.height());
    place.gap = toUnits(splitter_.handleWidth());
    editor_.placeTreeColumn(place);
}

void EditorSplitter::takeRemembered() {
    setPlace();
    if (!splitter_.property(kRemembered).toBool())
        return;
    splitter_.setProperty(kRemembered, false);
    takeShownWidth();
}

// A width that the screen chose, in an earlier run or for want of room, becomes the editor's in the same way
// as one that the mouse drags. The gap that is seen is then the gap that the editor knows.
void EditorSplitter::takeShownWidth() {
    setPlace();
    const int shown = column_.width();
    if (shown == toPixels(editor_.treeWidth()))
        return;
    const int edge = toUnits(column_.x()) + editor_.treeWidth() + 1;
    editor_.leftButtonDown(edge, 1);
    editor_.mouseMove(edge + toUnits(shown) - editor_.treeWidth(), 1, true);
    editor_.buttonUp();
    editor_.mouseMove(0, 0, false);
}

// The position of the mouse in the editor's units, from the middle of a pixel: the gap begins after its edge.
// It is limited so that the panes keep their minimum width.
QPoint EditorSplitter::placeOf(const QMouseEvent& mouse) const {
    const QPoint place = splitter_.mapFromGlobal(mouse.globalPosition().toPoint());
    const int panes = std::max(splitter_.widget(kPaneColumn)->minimumSizeHint().width(),
                               splitter_.widget(kPaneColumn)->minimumWidth());
    const int farthest =
        std::max(splitter_.width() - panes - 1, column_.geometry().right() + splitter_.handleWidth());
    return {toUnits(std::min(place.x(), farthest)) + kUnitsOfPixel / 2, toUnits(place.y())};
}

bool EditorSplitter::handleEvent(QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        break;
    default:
        return false;
    }
    const auto& mouse = static_cast<QMouseEvent&>(event);
    const bool left = mouse.buttons().testFlag(Qt::LeftButton);
    if (event.type() == QEvent::MouseButtonPress) {
        takeShownWidth();
        const QPoint place = placeOf(mouse);
        if (left)
            editor_.leftButtonDown(place.x(), place.y());
    } else if (event.type() == QEvent::MouseMove) {
        const QPoint place = placeOf(mouse);
        editor_.mouseMove(place.x(), place.y(), left);
        if (left)
            showWidth();
    } else {
        editor_.buttonUp();
    }
    return true;
}

void EditorSplitter::showWidth() {
    QList<int> sizes = splitter_.sizes();
    const int wanted = toPixels(editor_.treeWidth());
    const int both = sizes[kTreeColumn] + sizes[kPaneColumn];
    sizes[kTreeColumn] = std::min(wanted, both);
    sizes[kPaneColumn] = both - sizes[kTreeColumn];
    splitter_.setSizes(sizes);
}

} // namespace zb
