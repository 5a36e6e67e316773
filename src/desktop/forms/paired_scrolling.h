#pragma once

#include <QObject>

class QWidget;

namespace zb {

/// Scrolls the trees of a form together, so that rows with the same number stay side by side.
class PairedScrolling final : public QObject {
public:
    /// The form owns the object.
    explicit PairedScrolling(QWidget& form);

private:
    bool following_ = false;
};

} // namespace zb
