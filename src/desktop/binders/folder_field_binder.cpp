#include "desktop/binders/folder_field_binder.h"

#include "controls/combo.h"
#include "desktop/message_boxes.h"
#include "desktop/qt_text.h"

#include <QAbstractButton>
#include <QEvent>
#include <QFileSystemModel>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTreeView>

namespace zb {

FolderFieldBinder::FolderFieldBinder(FolderField& field, QTreeView& view, Binding& binding)
    : Binder(field, view, binding), field_(field), view_(view) {
    view_.setHeaderHidden(true);
    view_.setUniformRowHeights(true);
    pickFolder = [this](const std::string& start) {
        return askFolder(QStringLiteral("Location"), QStringLiteral("Choose"), view_.window(), toQt(start));
    };
    auto* browse =
        view_.window()->findChild<QAbstractButton*>(view_.objectName() + QStringLiteral("_Browse"));
    if (browse != nullptr)
        connect(browse, &QAbstractButton::clicked, this, &FolderFieldBinder::browse);
    start();
}

// The folder dialog of the system takes paths that are typed or pasted, and makes new folders.
void FolderFieldBinder::browse() {
    const QPointer<Binder> alive(this);
    const std::string folder = pickFolder(field_.text());
    if (alive && !folder.empty())
        hands().choose(field_, folder);
}

// The folders of the machine are read only when the field is opened.
void FolderFieldBinder::openBrowser() {
    if (folders_ != nullptr)
        return;
    folders_ = new QFileSystemModel(this);
    folders_->setFilter(QDir::Dirs | QDir::Drives | QDir::NoDotAndDotDot);
    folders_->setRootPath(QString());
    view_.setModel(folders_);
    for (int column = 1; column < folders_->columnCount(); ++column)
        view_.hideColumn(column);
    connect(view_.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (!isShowing() && current.isValid())
                    hands().choose(field_, fromQt(folders_->filePath(current)));
            });
    // Folders are read from the disk in portions and sorted again, which can move the searched one out of
    // view.
    connect(folders_, &QFileSystemModel::directoryLoaded, this, &FolderFieldBinder::keepInView,
            Qt::QueuedConnection);
    connect(folders_, &QFileSystemModel::layoutChanged, this, &FolderFieldBinder::keepInView,
            Qt::QueuedConnection);
    view_.viewport()->installEventFilter(this);
    connect(view_.verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { isSought_ = false; });
}

void FolderFieldBinder::keepInView() {
    if (isSought_)
        view_.scrollTo(view_.currentIndex());
}

void FolderFieldBinder::show(Change change) {
    if (change == Change::Value && view_.isVisible())
        showFolder();
}

void FolderFieldBinder::showFolder() {
    openBrowser();
    const Showing showing(binding());
    const QModelIndex folder = folders_->index(toQt(field_.text()));
    // A folder that the user has reached is expanded by the user; otherwise the arrow keys could not pass it.
    if (folder == view_.currentIndex() && !isSought_)
        return;
    isSought_ = true;
    view_.setCurrentIndex(folder);
    view_.expand(folder);
    view_.scrollTo(folder);
}

bool FolderFieldBinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &view_ && event->type() == QEvent::Show)
        showFolder();
    const bool isUsed = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel ||
                        event->type() == QEvent::KeyPress;
    if (isUsed && (watched == &view_ || watched == view_.viewport()))
        isSought_ = false;
    return Binder::eventFilter(watched, event);
}

bool FolderFieldBinder::keyPressed(QKeyEvent& event) {
    const bool isWindows =
        event.key() == Qt::Key_Escape || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isWindows && Binder::keyPressed(event);
}

} // namespace zb
