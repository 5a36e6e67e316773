#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

class QWidget;

namespace zb {

/// Reports which of the program's windows the user has turned to, by a click into it or by a switch of
/// windows. Activation by the program itself is not reported, and neither is a change to another program and
/// back: the windows stay as they were.
class Activation final : public QObject {
public:
    explicit Activation(std::function<void(QWidget&)> turnedTo);

    void watch(QWidget& form);
    /// Brings a window to the front. The display answers later; until then its reports about other windows
    /// are out of date.
    void bringToFront(QWidget& form);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::function<void(QWidget&)> turnedTo_;
    QPointer<QWidget> expected_;
    QTimer patience_;
};

} // namespace zb
