#include "desktop/start/start_panel.h"

#include "desktop/pictures/pictures.h"
#include "desktop/plain_labels.h"
#include "desktop/qt_text.h"
#include "desktop/shown_text.h"

#include <QCommandLinkButton>
#include <QEvent>
#include <QFileInfo>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace zb {

namespace {

constexpr int kPictureSize = 56;
constexpr int kWayPictureSize = 28;
constexpr int kWayMargins = 28;
constexpr qreal kCorner = 4;

/// Styles do not mark the focus of these buttons.
class WayButton final : public QCommandLinkButton {
public:
    using QCommandLinkButton::QCommandLinkButton;

private:
    void paintEvent(QPaintEvent* event) override {
        QCommandLinkButton::paintEvent(event);
        if (!hasFocus())
            return;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
    }
};

/// Enter presses it, as it does the buttons above.
class RecentButton final : public QToolButton {
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            click();
        else
            QToolButton::keyPressEvent(event);
    }
};

// Buttons of this kind write the line below their caption at 9 points, whatever the font is.
QFont fontOfMeanings(QFont font) {
    font.setPointSizeF(9);
    return font;
}

} // namespace

StartPanel::StartPanel(QWidget& place, const Pictures& pictures, Ways ways)
    : QScrollArea(&place), ways_(std::move(ways)) {
    setObjectName(QStringLiteral("startPanel"));
    setAccessibleName(QStringLiteral("Start"));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setBackgroundRole(QPalette::Base);

    auto* sheet = new QWidget(this); // the scroll area owns it
    auto* row = new QHBoxLayout(sheet);
    auto* column = new QVBoxLayout;
    row->addStretch();
    row->addLayout(column);
    row->addStretch();
    column->setSpacing(4);
    column->addStretch(2);
    addHead(*column, pictures);
    offers_ = new QVBoxLayout;
    column->addLayout(offers_);
    first_ = addWay(*column, QStringLiteral("startNew"), pictures.icon("new"), QStringLiteral("&New project"),
                    QStringLiteral("An empty one, in a folder of its own (Ctrl+N)"), ways_.makeNew);
    addWay(*column, QStringLiteral("startOpen"), pictures.icon("open"), QStringLiteral("&Open project"),
           QStringLiteral("A project file, *.zbp (Ctrl+O)"), ways_.open);
    addWay(*column, QStringLiteral("startExample"), pictures.icon("editor"),
           QStringLiteral("Open the &example"),
           QStringLiteral("A copy of the messages of a plasma etcher, in a folder of your choice"),
           ways_.openExample);
    recent_ = new QVBoxLayout;
    recent_->setSpacing(0);
    recent_->setContentsMargins(kWayMargins, 0, 0, 0);
    column->addLayout(recent_);
    column->addStretch(3);
    setWidget(sheet);
    hide();
    place.installEventFilter(this);
}

void StartPanel::addHead(QVBoxLayout& column, const Pictures& pictures) {
    auto* picture = new QLabel;
    picture->setPixmap(
        pictures.icon("zeltobench").pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatioF()));
    column.addWidget(picture, 0, Qt::AlignHCenter);
    auto* title = new QLabel(QStringLiteral("No project is open"));
    title->setForegroundRole(QPalette::Text);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    title->setFont(large);
    column.addWidget(title, 0, Qt::AlignHCenter);
    column.addSpacing(12);
}

QWidget* StartPanel::addWay(QVBoxLayout& column, const QString& name, const QIcon& icon,
                            const QString& caption, const QString& meaning, std::function<void()> way) {
    auto* button = new WayButton(caption, meaning);
    button->setObjectName(name);
    button->setIcon(icon);
    button->setIconSize(QSize(kWayPictureSize, kWayPictureSize));
    button->setMinimumWidth(kWayPictureSize + kWayMargins +
                            QFontMetrics(fontOfMeanings(font())).horizontalAdvance(meaning));
    button->setAutoDefault(true); // Enter presses it as well as Space
    connect(button, &QAbstractButton::clicked, this, std::move(way));
    column.addWidget(button);
    return button;
}

// One line for each: name and folder, with the whole path as tool tip.
void StartPanel::showRecent() {
    constexpr std::size_t kMostShown = 5;
    while (QLayoutItem* old = recent_->takeAt(0)) {
        delete old->widget(); // NOLINT(cppcoreguidelines-owning-memory): the layout has given it back
        delete old;           // NOLINT(cppcoreguidelines-owning-memory)
    }
    std::vector<std::string> paths = ways_.recent();
    paths.resize(std::min(paths.size(), kMostShown));
    if (paths.empty())
        return;
    auto* title = new QLabel(QStringLiteral("Recent projects"));
    title->setForegroundRole(QPalette::Text);
    title->setContentsMargins(0, kWayMargins / 2, 0, 0);
    recent_->addWidget(title);
    int number = 0;
    for (const std::string& path : paths)
        recent_->addWidget(makeRecent(path, ++number), 0, Qt::AlignLeft);
}

QWidget* StartPanel::makeRecent(const std::string& path, int number) {
    constexpr int kWidest = 420;
    const QFileInfo file(toQt(path));
    auto* button = new RecentButton;
    QString text = shownLine(fromQt(file.completeBaseName() + QStringLiteral("  –  ") + file.path()));
    text = fontMetrics().elidedText(text, Qt::ElideMiddle, kWidest);
    button->setText(text.replace(QLatin1Char('&'), QStringLiteral("&&")));
    button->setObjectName(QStringLiteral("startRecent%1").arg(number));
    button->setToolTip(toolTipOf(path));
    button->setAccessibleName(toQt(path));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    connect(button, &QToolButton::clicked, this, [this, path] { ways_.openRecent(path); });
    return button;
}

void StartPanel::setShown(bool shown) {
    if (shown == !isHidden())
        return;
    if (shown) {
        showRecent();
        setGeometry(parentWidget()->rect());
        raise();
        show();
        firstButton()->setFocus(Qt::OtherFocusReason);
        return;
    }
    // Focus that is lost by hiding would move on as if the user had pressed Tab.
    if (QWidget* focused = window()->focusWidget(); focused != nullptr && isAncestorOf(focused))
        focused->clearFocus();
    hide();
}

void StartPanel::setOffers(const std::vector<Offer>& offers) {
    const QWidget* focused = focusWidget();
    const bool hadFocus = focused != nullptr && isAncestorOf(focused) && !isHidden();
    // One of the buttons may be the one whose click is being handled.
    for (QWidget* old : findChildren<QWidget*>(QStringLiteral("startOffer"))) {
        offers_->removeWidget(old);
        old->hide();
        old->deleteLater();
        old->setObjectName({});
        for (QWidget* part : old->findChildren<QWidget*>())
            part->setObjectName({});
    }
    for (const Offer& offer : offers)
        addOffer(offer);
    if (hadFocus)
        firstButton()->setFocus(Qt::OtherFocusReason);
}

void StartPanel::addOffer(const Offer& offer) {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("startOffer"));
    frame->setFrameShape(QFrame::StyledPanel);
    auto* rows = new QVBoxLayout(frame);
    auto* text = new QLabel(offer.text);
    text->setTextFormat(Qt::PlainText);
    text->setForegroundRole(QPalette::Text);
    text->setWordWrap(true);
    rows->addWidget(text);
    auto* buttons = new QHBoxLayout;
    rows->addLayout(buttons);
    for (const auto& [caption, way] : offer.ways) {
        auto* button = new QPushButton(caption);
        button->setObjectName(QStringLiteral("start") + caption);
        button->setAccessibleDescription(offer.text);
        button->setAutoDefault(true);
        connect(button, &QAbstractButton::clicked, this, way);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    offers_->addWidget(frame);
    frame->show(); // a button that is still hidden would not get the focus
}

QWidget* StartPanel::firstButton() const {
    const QWidget* offer = offers_->isEmpty() ? nullptr : offers_->itemAt(0)->widget();
    auto* button = offer == nullptr ? nullptr : offer->findChild<QPushButton*>();
    return button == nullptr ? first_ : button;
}

bool StartPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QScrollArea::eventFilter(watched, event);
}

} // namespace zb
