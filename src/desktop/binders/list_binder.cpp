#include "desktop/binders/list_binder.h"

#include "controls/list.h"
#include "desktop/colors.h"
#include "desktop/layout_memory.h"
#include "desktop/models/list_model.h"
#include "desktop/qt_text.h"
#include "desktop/shown_text.h"
#include "desktop/units.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTreeView>

#include <algorithm>
#include <utility>

namespace zb {

namespace {

/// Shows the selection paler while the keyboard focus is elsewhere.
class RowPainter final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->widget == nullptr || option->widget->hasFocus())
            return;
        const QColor text = option->palette.color(QPalette::Text);
        option->palette.setColor(QPalette::Highlight, restingHighlight(option->widget->palette()));
        option->palette.setColor(QPalette::HighlightedText, text);
    }
};

} // namespace

ListBinder::ListBinder(List& list, QTreeView& view, Binding& binding)
    : ItemBinder(list, view, binding), list_(list), view_(view),
      model_(new ListModel(list, binding.pictures, this)) {
    view_.setModel(model_);
    view_.setItemDelegate(new RowPainter(&view_));
    view_.setRootIsDecorated(false);
    view_.setUniformRowHeights(true);
    view_.setAllColumnsShowFocus(true);
    view_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_.setSelectionMode(list.selection() == List::Selection::Many ? QAbstractItemView::ExtendedSelection
                                                                     : QAbstractItemView::SingleSelection);
    view_.viewport()->setAcceptDrops(takesDrops());
    // The focus comes through the store: a press on a header leaves it where it is.
    view_.setFocusPolicy(Qt::TabFocus);
    view_.header()->setSectionsClickable(true);
    view_.header()->setSectionsMovable(false);
    view_.header()->setHighlightSections(false);
    connect(view_.header(), &QHeaderView::sectionClicked, this, [this](int section) {
        Target target = Target::whole(list_);
        target.column = static_cast<std::size_t>(section);
        hands().click(target);
    });
    connect(view_.header(), &QHeaderView::sectionResized, this,
            [this](int section, int /*before*/, int width) { rememberWidth(section, width); });
    start();
    flush();
}

void ListBinder::show(Change change) {
    if (change == Change::Rows && list_.columns().empty() && !shownColumns_.isEmpty())
        forgetWidths();
    if (change == Change::Rows && !rowsAreOld_) {
        // A library is added row by row; the view reads the rows once after all of them.
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
    fitLastColumn();
    showSelection();
}

void ListBinder::rereadRows() {
    const int scrolled = view_.verticalScrollBar()->value();
    model_->reread();
    view_.verticalScrollBar()->setValue(scrolled);
}

void ListBinder::showColumns() {
    QStringList columns;
    for (const ListColumn& column : list_.columns())
        columns << toQt(column.text);
    view_.setHeaderHidden(columns.isEmpty());
    // The user controls the width of a column as long as it exists.
    if (std::exchange(shownColumns_, columns) != columns)
        showWidths();
    view_.header()->setSortIndicatorShown(list_.sorted());
    if (list_.sorted())
        view_.header()->setSortIndicator(list_.sortKey(), Qt::AscendingOrder);
}

// Columns that the program makes anew have the widths that it gives them, even when their texts are the same.
void ListBinder::forgetWidths() {
    view_.setProperty(kColumnWidths, QVariant());
    shownColumns_.clear();
}

// The first columns have the widths that the user gave them in an earlier run.
void ListBinder::showWidths() {
    const QVariantMap widths = view_.property(kColumnWidths).toMap();
    const auto& columns = list_.columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int original = toPixels(columns[i].width);
        const int width = widths.value(toQt(columns[i].text), original).toInt();
        if (width > 0)
            view_.header()->resizeSection(static_cast<int>(i), width);
    }
}

// The last column fills the rest of the view, or is wider when its texts need it.
void ListBinder::fitLastColumn() {
    constexpr std::size_t kMostRows = 500; // the texts of a library are not measured individually
    const int last = static_cast<int>(shownColumns_.size()) - 1;
    if (last < 0 || list_.count() > kMostRows)
        return;
    const QAbstractItemView& view = view_;
    view_.header()->resizeSection(
        last, std::max(view.sizeHintForColumn(last), view_.header()->sectionSizeHint(last)));
}

void ListBinder::rememberWidth(int section, int width) {
    // The last column fills the rest of the view.
    if (isShowing() || rowsAreOld_ || section + 1 >= shownColumns_.size())
        return;
    QVariantMap widths = view_.property(kColumnWidths).toMap();
    widths[shownColumns_[section]] = width;
    view_.setProperty(kColumnWidths, widths);
}

void ListBinder::showSelection() {
    QItemSelection selection;
    const auto& rows = list_.shown();
    // Rows beside each other are one range: Qt compares all ranges with each other.
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!rows[i]->selected())
            continue;
        const int first = static_cast<int>(i);
        while (i + 1 < rows.size() && rows[i + 1]->selected())
            ++i;
        selection.select(model_->index(first, 0),
                         model_->index(static_cast<int>(i), model_->columnCount() - 1));
    }
    QItemSelectionModel* shown = view_.selectionModel();
    shown->select(selection, QItemSelectionModel::ClearAndSelect);
    const QModelIndex current = model_->indexOf(list_.rangeEnd());
    shown->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (current.isValid())
        view_.scrollTo(current);
}

Target ListBinder::targetAt(const QPoint& place) const {
    Target target = Target::whole(list_);
    target.row = model_->rowAt(view_.indexAt(place));
    return target;
}

Target ListBinder::selectedTarget() const {
    Target target = Target::whole(list_);
    target.row = list_.selected();
    return target;
}

QRect ListBinder::placeOf(const Target& target) const {
    return view_.visualRect(model_->indexOf(target.row));
}

QStringList ListBinder::selectedTexts() const {
    QStringList texts;
    for (const ListRow* row : list_.selectedRows())
        texts << shownLine(row->text());
    return texts;
}

bool ListBinder::startsDrags() const {
    return static_cast<bool>(list_.onDragStart);
}

bool ListBinder::takesDrops() const {
    return static_cast<bool>(list_.onDrop);
}

bool ListBinder::takesDoubleClicks() const {
    return static_cast<bool>(list_.onDoubleClick);
}

UserHands::Refusal ListBinder::press(const Target& target, const QMouseEvent& event) {
    const bool extends = event.button() == Qt::LeftButton && event.modifiers().testFlag(Qt::ShiftModifier);
    return extends && target.row != nullptr ? hands().extendTo(list_, *target.row)
                                            : ItemBinder::press(target, event);
}

bool ListBinder::keyPressed(QKeyEvent& event) {
    flush();
    // The size of a page is known only to the screen: scripts have no such key.
    return (event.spontaneous() && moveByPage(event)) || ItemBinder::keyPressed(event);
}

bool ListBinder::moveByPage(const QKeyEvent& event) {
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
