#include "desktop/forms/cell_editor.h"

#include "desktop/models/list_model.h"
#include "modeler/frm_array_info.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace zb {

namespace {

constexpr int kValueColumn = 1;

/// Rows as high as the field over them.
class TallRows final : public QStyledItemDelegate {
public:
    TallRows(int height, QObject* parent) : QStyledItemDelegate(parent), height_(height) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index).expandedTo({0, height_});
    }

private:
    int height_;
};

} // namespace

CellEditor::CellEditor(frmArrayInfo& dialog, QWidget& form)
    : QObject(&form), dialog_(dialog), view_(*form.findChild<QTreeView*>(QStringLiteral("lvwArray"))),
      line_(*form.findChild<QLineEdit*>(QStringLiteral("txtValue"))), viewport_(view_.viewport()) {
    // The field is in the viewport, so it scrolls out of view with its cell.
    line_.setParent(view_.viewport());
    line_.setFrame(false);
    line_.setAutoFillBackground(true);
    QWidget::setTabOrder(&view_, &line_);
    view_.setItemDelegate(new TallRows(line_.sizeHint().height(), &view_));
    line_.installEventFilter(this);
    view_.installEventFilter(this);
    view_.viewport()->installEventFilter(this);
    connect(view_.header(), &QHeaderView::sectionResized, this, [this] { follow(); });
    connect(view_.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { follow(); });
    connect(view_.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { follow(); });
    connect(view_.selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { follow(); });
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    // Keys of scripts go to the store only.
    if (type == QEvent::KeyPress && event->spontaneous()) {
        auto& key = static_cast<QKeyEvent&>(*event);
        return watched == &line_ ? lineKey(key) : watched == &view_ && viewKey(key);
    }
    if (watched == &line_ && (type == QEvent::Show || type == QEvent::FocusIn))
        follow();
    else if (watched == viewport_ && type == QEvent::Resize) // the columns are laid out after this
        QMetaObject::invokeMethod(
            this, [this] { follow(); }, Qt::QueuedConnection);
    return false;
}

bool CellEditor::viewKey(QKeyEvent& event) {
    const QString text = event.text();
    const bool types = !text.isEmpty() && text.at(0).isPrint() && text.at(0) != QLatin1Char(' ');
    const bool enters = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const List& list = dialog_.lvwArray;
    if ((!types && !enters) || list.count() == 0)
        return false;
    edit(list.selected() != nullptr ? *list.selected() : *list.shown().front());
    if (types) {
        line_.selectAll();
        QCoreApplication::sendEvent(&line_, &event);
    }
    return true;
}

bool CellEditor::lineKey(const QKeyEvent& event) {
    const bool on =
        event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Down;
    if (!on && event.key() != Qt::Key_Up)
        return false;
    const auto& rows = dialog_.lvwArray.shown();
    const int position = dialog_.lvwArray.positionOf(dialog_.editedRow()) + (on ? 1 : -1);
    if (position >= 1 && position <= static_cast<int>(rows.size()))
        edit(*rows[static_cast<std::size_t>(position) - 1]);
    else if (on)
        dialog_.cmdOK.setFocus();
    return true;
}

// As the mouse opens the cell.
void CellEditor::edit(ListRow& row) {
    dialog_.lvwArray.select(&row);
    fire(dialog_.lvwArray.onMouseUp, 1, &row);
    follow();
}

void CellEditor::follow() {
    const ListRow* row = dialog_.editedRow();
    if (row == nullptr || line_.isHidden())
        return;
    const auto& model = static_cast<const ListModel&>(*view_.model());
    const QModelIndex cell = model.indexOf(row).siblingAtColumn(kValueColumn);
    if (cell.isValid())
        line_.setGeometry(view_.visualRect(cell));
}

} // namespace zb
