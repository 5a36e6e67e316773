#pragma once

#include <QScrollArea>

#include <functional>
#include <string>
#include <utility>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace zb {

class Pictures;

/// The start page, shown at the place of the documents while no project is open. It is not a window of the
/// program and has no state: its buttons run menu entries.
class StartPanel final : public QScrollArea {
public:
    struct Ways {
        std::function<void()> makeNew;
        std::function<void()> open;
        std::function<void()> openExample;
        std::function<void(const std::string& path)> openRecent;
        /// The paths of recent projects, the latest first; requested whenever the page is shown.
        std::function<std::vector<std::string>()> recent;
    };

    /// Something that waits for a decision, such as unsaved work of a program that was killed.
    struct Offer {
        QString text;
        std::vector<std::pair<QString, std::function<void()>>> ways; ///< caption, and what it does
    };

    /// Covers the place at any size.
    StartPanel(QWidget& place, const Pictures& pictures, Ways ways);

    /// When shown, it has the keyboard focus until something else takes it.
    void setShown(bool shown);
    /// Shown above the ways to begin.
    void setOffers(const std::vector<Offer>& offers);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void addHead(QVBoxLayout& column, const Pictures& pictures);
    QWidget* addWay(QVBoxLayout& column, const QString& name, const QIcon& icon, const QString& caption,
                    const QString& meaning, std::function<void()> way);

    void addOffer(const Offer& offer);
    QWidget* firstButton() const;

    QVBoxLayout* offers_ = nullptr;
    void showRecent();
    QWidget* makeRecent(const std::string& path, int number);

    Ways ways_;
    QWidget* first_ = nullptr;
    QVBoxLayout* recent_ = nullptr;
};

} // namespace zb
