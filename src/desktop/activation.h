#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

class QWidget;

namespace zb {

/// Tells which of the program's windows the user has turned to, by a click into it or by a switch of windows.
/// What the program brings to the front itself is no news, and neither is the user's way to another program
/// and back: whoever looks into a manual finds everything as it was.
class Activation final : public QObject {
public:
    explicit Activation(std::function<void(QWidget&)> turnedTo);

    void watch(QWidget& form);
    /// Brings a window to the front. The display answers later, and until it does, what it tells of other
    /// windows is old.
    void bringToFront(QWidget& form);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::function<void(QWidget&)> turnedTo_;
    QPointer<QWidget> expected_;
    QTimer patience_;
};

} // namespace zb
