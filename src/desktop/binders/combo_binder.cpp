#include "desktop/binders/combo_binder.h"

#include "controls/combo.h"
#include "desktop/models/combo_model.h"
#include "desktop/shown_text.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QProxyStyle>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>

namespace zb {

namespace {

/// Opens a list that scrolls; some styles open one as high as the screen.
class ScrollingPopup final : public QProxyStyle {
public:
    ScrollingPopup() : QProxyStyle(QApplication::style()->name()) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, result);
    }
};

/// Shows the note of an entry at the right edge, paler than the entry.
class NotePainter final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const QString note = index.data(ComboModel::kNoteRole).toString();
        const QFontMetrics& metrics = option.fontMetrics;
        const int free =
            option.rect.width() - metrics.horizontalAdvance(index.data(Qt::DisplayRole).toString());
        if (note.isEmpty() || free < metrics.horizontalAdvance(note) + 4 * kMargin)
            return;
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->setPen(selected ? option.palette.color(QPalette::HighlightedText)
                                 : option.palette.color(QPalette::Disabled, QPalette::Text));
        painter->drawText(option.rect.adjusted(0, 0, -2 * kMargin, 0), Qt::AlignRight | Qt::AlignVCenter,
                          note);
        painter->restore();
    }

private:
    static constexpr int kMargin = 4;
};

} // namespace

void StoreComboBox::setShownText(const QString& text) {
    shownText_ = text;
    setAccessibleDescription(text);
    update();
}

void StoreComboBox::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = shownText_;
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

// Scrolling a pane past the combo must not choose another message.
void StoreComboBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

ComboBinder::ComboBinder(Combo& combo, StoreComboBox& box, Binding& binding)
    : Binder(combo, box, binding), combo_(combo), box_(box), model_(new ComboModel(combo, this)) {
    // The wheel is for the field with the focus, and brings it to none.
    box_.setFocusPolicy(Qt::StrongFocus);
    box_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    constexpr int kMostRows = 20;
    box_.setMaxVisibleItems(kMostRows);
    auto* style = new ScrollingPopup;
    style->setParent(&box_); // a widget does not own its style
    box_.setStyle(style);
    auto* list = new QListView(&box_);
    list->setUniformItemSizes(true);
    box_.setView(list);
    if (combo_.noteOf)
        list->setItemDelegate(new NotePainter(list));
    box_.setModel(model_);
    connect(&box_, &QComboBox::activated, this, [this](int row) {
        if (row >= 0)
            hands().choose(combo_, static_cast<std::size_t>(row));
    });
    start();
}

void ComboBinder::show(Change change) {
    if (change == Change::Rows && !rowsAreOld_) {
        // Entries are added by the thousand; the list is read once after all of them.
        rowsAreOld_ = true;
        QMetaObject::invokeMethod(
            this, [this] { flush(); }, Qt::QueuedConnection);
    }
    box_.setShownText(shownLine(combo_.text()));
    if (change == Change::Value && !rowsAreOld_)
        flush();
}

void ComboBinder::flush() {
    const Showing showing(binding());
    if (std::exchange(rowsAreOld_, false))
        model_->reread();
    const auto& entries = combo_.entries();
    const auto found = std::find(entries.begin(), entries.end(), combo_.text());
    box_.setCurrentIndex(found == entries.end() ? -1 : static_cast<int>(found - entries.begin()));
}

bool ComboBinder::keyPressed(QKeyEvent& event) {
    const bool opens =
        event.key() == Qt::Key_F4 || (event.modifiers().testFlag(Qt::AltModifier) &&
                                      (event.key() == Qt::Key_Down || event.key() == Qt::Key_Up));
    if (opens && event.spontaneous()) {
        box_.showPopup();
        return true;
    }
    if (!Binder::keyPressed(event))
        return false;
    const QString text = event.text();
    if (event.spontaneous() && !text.isEmpty() && text.at(0).isPrint() && box_.count() > 0) {
        box_.showPopup();
        box_.view()->keyboardSearch(text);
    }
    return true;
}

} // namespace zb
