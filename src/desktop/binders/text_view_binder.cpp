#include "desktop/binders/text_view_binder.h"

#include "controls/text_field.h"
#include "desktop/qt_text.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextEdit>

namespace zb {

namespace {

constexpr const char* kCopyName = "copyOfView";

/// The widget has one character for the end of a line.
QString shownText(const TextField& field) {
    return toQt(field.text()).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

} // namespace

TextViewBinder::TextViewBinder(TextField& field, QPlainTextEdit& view, Binding& binding)
    : Binder(field, view, binding), field_(field), view_(view) {
    view_.setTabChangesFocus(true);
    view_.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&view_, &QPlainTextEdit::customContextMenuRequested, this, &TextViewBinder::openContextMenu);
    start();
}

void TextViewBinder::show(Change change) {
    if (change == Change::State)
        view_.setReadOnly(true);
    else if (change != Change::Selection && view_.toPlainText() != shownText(field_))
        view_.setPlainText(shownText(field_));
}

bool TextViewBinder::keyPressed(QKeyEvent& event) {
    return event.key() == Qt::Key_Escape && Binder::keyPressed(event);
}

void TextViewBinder::addViewCommands(QMenu& menu) {
    QAction* copy = menu.addAction(tr("&Copy"), &view_, &QPlainTextEdit::copy);
    copy->setObjectName(QLatin1String(kCopyName));
    copy->setEnabled(view_.textCursor().hasSelection());
    connect(&view_, &QPlainTextEdit::copyAvailable, copy, &QAction::setEnabled);
    menu.addAction(tr("Select &All"), &view_, &QPlainTextEdit::selectAll);
}

// The commands of the program come first, and those of every text below them.
void TextViewBinder::openContextMenu(const QPoint& place) {
    const QPoint seen = view_.viewport()->mapToGlobal(place);
    QMenu* own = field_.contextMenu() == nullptr ? nullptr : binding().popups[field_.contextMenu()];
    if (own == nullptr) {
        QMenu menu(&view_);
        addViewCommands(menu);
        menu.exec(seen);
        return;
    }
    if (own->findChild<QAction*>(QLatin1String(kCopyName)) == nullptr) {
        own->addSeparator();
        addViewCommands(*own);
    }
    binding().popupPlace = seen;
    hands().rightClick(Target::whole(field_));
    binding().popupPlace.reset();
}

} // namespace zb
