#pragma once

#include <QScrollArea>

#include <functional>

class QLabel;
class QVBoxLayout;

namespace zb {

class Pictures;

/// How to begin, told where the documents will stand as long as no project is open. It is no window of the
/// program and holds nothing: its buttons do what menu entries do.
class StartPanel final : public QScrollArea {
public:
    struct Ways {
        std::function<void()> makeNew;
        std::function<void()> open;
        std::function<void()> openExample;
    };

    /// Covers the place, of whatever size that becomes.
    StartPanel(QWidget& place, const Pictures& pictures, Ways ways);

    /// Shown, it has the keyboard until something else takes it.
    void setShown(bool shown);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void addHead(QVBoxLayout& column, const Pictures& pictures);
    QWidget* addWay(QVBoxLayout& column, const QString& name, const QIcon& icon, const QString& caption,
                    const QString& meaning, std::function<void()> way);

    QWidget* first_ = nullptr;
};

} // namespace zb
