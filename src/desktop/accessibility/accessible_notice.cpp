#include "desktop/accessibility/accessible_notice.h"

#include <QLabel>

namespace zb {

namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* label = qobject_cast<QLabel*>(object);
    const bool isNotice = label != nullptr && label->property("isNotice").toBool();
    return isNotice ? new AccessibleNotice(*label) : nullptr; // Qt owns it
}

} // namespace

AccessibleNotice::AccessibleNotice(QLabel& label) : QAccessibleWidget(&label, QAccessible::Notification) {}

void AccessibleNotice::install() {
    QAccessible::installFactory(&makeInterface);
}

// Each platform listens to another one of these.
void AccessibleNotice::report(QLabel& label, const Send& send) {
    for (const auto kind : {QAccessible::NameChanged, QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent event(&label, kind);
        send(&event);
    }
}

QString AccessibleNotice::text(QAccessible::Text text) const {
    return text == QAccessible::Name ? static_cast<const QLabel*>(widget())->text()
                                     : QAccessibleWidget::text(text);
}

} // namespace zb
