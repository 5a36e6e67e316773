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

constexpr int kTreeColumn = 1; // of the splitter's three, library, tree and panes
constexpr int kPaneColumn = 2;

} // namespace

EditorSplitter::EditorSplitter(frmSECSEditor& editor, QWidget& form)
    : QObject(&form), editor_(editor),
      splitter_(*form.findChild<QSplitter*>(QStringLiteral("editorSplitter"))),
      column_(*splitter_.widget(kTreeColumn)) {
    // Tree and panes keep the widths that the user gave them; the library takes what is left.
    splitter_.setStretchFactor(0, 1);
    splitter_.setStretchFactor(kTreeColumn, 0);
    splitter_.setStretchFactor(kPaneColumn, 0);
    if (!splitter_.property(kRemembered).toBool())
        splitter_.setSizes({300, toPixels(editor_.treeWidth()), 380});
    column_.installEventFilter(this);
    splitter_.handle(kPaneColumn)->installEventFilter(this);
    auto* width = form.findChild<QLineEdit*>(QStringLiteral("txtTreeWidth"));
    connect(width, &QLineEdit::editingFinished, this, [this] { showWidth(); });
}

bool EditorSplitter::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &column_) {
        if (event->type() == QEvent::Show)
            takeRemembered();
        if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
            tellPlace();
        return false;
    }
    return handleEvent(*event);
}

void EditorSplitter::tellPlace() {
    Splitter::Column place;
    place.left = toUnits(column_.x());
    place.top = 0;
    place.height = toUnits(column_.height());
    place.gap = toUnits(splitter_.handleWidth());
    editor_.placeTreeColumn(place);
}

// A width of an earlier run becomes the editor's by the same road as one that the mouse drags.
void EditorSplitter::takeRemembered() {
    tellPlace();
    if (!splitter_.property(kRemembered).toBool())
        return;
    splitter_.setProperty(kRemembered, false);
    const int edge = toUnits(column_.x()) + editor_.treeWidth() + 1;
    editor_.leftButtonDown(edge, 1);
    editor_.mouseMove(edge + toUnits(column_.width()) - editor_.treeWidth(), 1, true);
    editor_.buttonUp();
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
    const QPoint place = splitter_.mapFromGlobal(mouse.globalPosition().toPoint());
    const int x = toUnits(place.x());
    const int y = toUnits(place.y());
    if (event.type() == QEvent::MouseButtonPress) {
        editor_.leftButtonDown(x, y);
    } else if (event.type() == QEvent::MouseMove) {
        editor_.mouseMove(x, y, mouse.buttons().testFlag(Qt::LeftButton));
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
