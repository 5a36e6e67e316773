#pragma once

#include <QAccessibleWidget>

#include <functional>

class QLabel;

namespace zb {

/// What a screen reader finds in the place of the notices: a notification, which it reads out when it is
/// shown, wherever the keyboard is.
class AccessibleNotice final : public QAccessibleWidget {
public:
    explicit AccessibleNotice(QLabel& label);

    /// Makes Qt find the interface of labels that have the property `isNotice`. Further calls do nothing.
    static void install();
    /// Takes the events for screen readers.
    using Send = std::function<void(QAccessibleEvent*)>;
    /// Reports that the label shows another notice. Qt drops the events while no screen reader listens.
    static void report(QLabel& label, const Send& send = &QAccessible::updateAccessibility);

    QString text(QAccessible::Text text) const override;
};

} // namespace zb
