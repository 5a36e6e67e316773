#pragma once

#include <QScrollArea>

namespace zb {

/// A column of fields or lists that scrolls where it has less height than they need. It is never narrower
/// than they are.
class LowColumn final : public QScrollArea {
    Q_OBJECT

public:
    explicit LowColumn(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace zb
