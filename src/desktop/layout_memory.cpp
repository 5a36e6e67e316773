#include "desktop/layout_memory.h"

#include "desktop/qt_text.h"

#include <QSplitter>
#include <QTreeView>
#include <QWidget>

namespace zb {

namespace {

QString keyOf(const QWidget& form, const QString& part) {
    return form.objectName() + QLatin1Char('/') + part;
}

} // namespace

void LayoutMemory::open(const std::string& file) {
    settings_ = file.empty() ? nullptr : std::make_unique<QSettings>(toQt(file), QSettings::IniFormat);
}

void LayoutMemory::restore(QWidget& form) const {
    if (settings_ == nullptr)
        return;
    const QByteArray geometry = settings_->value(keyOf(form, QStringLiteral("geometry"))).toByteArray();
    form.setProperty(kRemembered, form.restoreGeometry(geometry));
    for (QSplitter* splitter : form.findChildren<QSplitter*>()) {
        const bool known =
            splitter->restoreState(settings_->value(keyOf(form, splitter->objectName())).toByteArray());
        splitter->setProperty(kRemembered, known);
    }
    for (QTreeView* list : form.findChildren<QTreeView*>())
        list->setProperty(kColumnWidths, settings_->value(keyOf(form, list->objectName())));
}

void LayoutMemory::remember(QWidget& form) {
    if (settings_ == nullptr)
        return;
    if (form.isWindow())
        settings_->setValue(keyOf(form, QStringLiteral("geometry")), form.saveGeometry());
    for (const QSplitter* splitter : form.findChildren<QSplitter*>())
        settings_->setValue(keyOf(form, splitter->objectName()), splitter->saveState());
    for (const QTreeView* list : form.findChildren<QTreeView*>())
        settings_->setValue(keyOf(form, list->objectName()), list->property(kColumnWidths));
}

int LayoutMemory::height(const QString& part) const {
    return settings_ == nullptr ? 0 : settings_->value(part + QStringLiteral("/height")).toInt();
}

void LayoutMemory::rememberHeight(const QString& part, int height) {
    if (settings_ != nullptr)
        settings_->setValue(part + QStringLiteral("/height"), height);
}

} // namespace zb
