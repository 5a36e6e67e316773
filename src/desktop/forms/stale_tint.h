#pragma once

#include <QObject>

class QWidget;

namespace zb {

/// Tints the message pane while a line in it says that it shows another message than the selected one.
class StaleTint final : public QObject {
public:
    /// The form has the pane and the line.
    explicit StaleTint(QWidget& form);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void show(bool stale);

    QWidget& pane_;
    QWidget& line_;
};

} // namespace zb
