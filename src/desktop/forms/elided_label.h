#pragma once

#include <QLabel>

namespace zb {

/// A line of plain text. Where the whole does not fit, its middle is left out; `text` is the whole.
class ElidedLabel final : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace zb
