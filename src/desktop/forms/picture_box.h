#pragma once

#include <QIcon>
#include <QWidget>

namespace zb {

/// A picture with its name, as the source of a drag. It can also be reached with the keyboard.
class PictureBox final : public QWidget {
public:
    explicit PictureBox(QWidget* parent = nullptr);

    void setPicture(const QIcon& icon, const QString& caption);
    const QIcon& icon() const { return icon_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QIcon icon_;
    QString caption_;
};

} // namespace zb
