#include "desktop/activation.h"

#include <QEvent>
#include <QWidget>

#include <utility>

namespace zb {

namespace {

constexpr int kLongestAnswer =
    400; // ms; a display may never answer, for example for a window on another screen

} // namespace

Activation::Activation(std::function<void(QWidget&)> turnedTo) : turnedTo_(std::move(turnedTo)) {
    patience_.setSingleShot(true);
    patience_.setInterval(kLongestAnswer);
    connect(&patience_, &QTimer::timeout, this, [this] { expected_ = nullptr; });
}

void Activation::watch(QWidget& form) {
    form.installEventFilter(this);
}

void Activation::bringToFront(QWidget& form) {
    form.raise();
    if (form.isActiveWindow() && expected_ == nullptr)
        return;
    expected_ = &form;
    patience_.start();
    form.activateWindow();
}

bool Activation::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::WindowActivate)
        return false;
    if (expected_ != nullptr) {
        if (watched == expected_)
            expected_ = nullptr;
        return false;
    }
    turnedTo_(static_cast<QWidget&>(*watched));
    return false;
}

} // namespace zb
