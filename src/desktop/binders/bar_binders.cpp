#include "desktop/binders/bar_binders.h"

#include "controls/bars.h"
#include "controls/menu.h"
#include "desktop/pictures/pictures.h"
#include "desktop/plain_labels.h"
#include "desktop/qt_text.h"
#include "desktop/shown_text.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace zb {

namespace {

constexpr int kMainPictureSize = 24;
constexpr int kPanePictureSize = 22;
constexpr int kLeastPanel = 80; // of the status bar
constexpr int kWidestName = 210;
constexpr std::string_view kPressedPicture =
    "_Pressed"; // how the name of the picture of a pressed button ends

} // namespace

ToolbarBinder::ToolbarBinder(Toolbar& toolbar, QWidget& widget, Binding& binding)
    : Binder(toolbar, widget, binding), toolbar_(toolbar) {
    makeButtons();
    start();
}

void ToolbarBinder::makeButtons() {
    for (ToolbarButton& button : toolbar_.buttons()) {
        QToolButton& shown = makeButton(button);
        place(shown, static_cast<int>(buttons_.size()));
        // They are created after the form; Tab visits them at the position of their bar in the form.
        QWidget::setTabOrder(buttons_.empty() ? &widget() : buttons_.back(), &shown);
        buttons_.push_back(&shown);
    }
    // The bar held the place of its buttons in the order; they take the keyboard.
    if (isInPane())
        widget().setFocusPolicy(Qt::NoFocus);
}

bool ToolbarBinder::isInPane() const {
    return qobject_cast<QToolBar*>(&widget()) == nullptr;
}

int ToolbarBinder::buttonsPerRow() const {
    return std::max(1, widget().property("buttonsPerRow").toInt());
}

QToolButton& ToolbarBinder::makeButton(ToolbarButton& button) {
    auto* shown = new QToolButton(&widget()); // the widget owns it
    const bool main = !isInPane();
    const int size = main ? kMainPictureSize : kPanePictureSize;
    shown->setIcon(binding().pictures.icon(button.key()));
    shown->setIconSize({size, size});
    shown->setAutoRaise(true);
    shown->setCheckable(!main);
    shown->setFocusPolicy(main ? Qt::NoFocus : Qt::TabFocus);
    if (!main)
        shown->installEventFilter(this);
    shown->setToolTip(toQt(button.toolTip()));
    shown->setAccessibleName(toQt(button.toolTip().empty() ? button.key() : button.toolTip()));
    shown->setObjectName(widget().objectName() + QLatin1Char('_') + toQt(button.key()));
    connect(shown, &QToolButton::clicked, this, [this, &button] {
        Target target = Target::whole(toolbar_);
        target.button = &button;
        hands().click(target);
    });
    // The widget has turned itself over; only the program presses buttons. A click may end this binder: then
    // this is not called any more.
    connect(shown, &QToolButton::clicked, this, &ToolbarBinder::showButtons);
    return *shown;
}

// The pop-up of a button opens as by a right click on it.
QToolButton& ToolbarBinder::makeArrow(ToolbarButton& button, const QToolButton& shown) {
    auto* arrow = new QToolButton(&widget()); // the widget owns it
    constexpr int kArrowWidth = 14;
    arrow->setArrowType(Qt::DownArrow);
    arrow->setAutoRaise(true);
    arrow->setFixedWidth(kArrowWidth);
    arrow->setFocusPolicy(Qt::NoFocus);
    arrow->setObjectName(shown.objectName() + QStringLiteral("_Menu"));
    arrow->setToolTip(toQt(toolbar_.contextMenu()->toolTip()));
    arrow->setAccessibleName(toQt(toolbar_.contextMenu()->toolTip()));
    connect(arrow, &QToolButton::clicked, this, [this, &button, arrow] {
        binding().popupPlace = arrow->mapToGlobal(QPoint(0, arrow->height()));
        openMenuOf(button);
        binding().popupPlace.reset();
    });
    return *arrow;
}

void ToolbarBinder::openMenuOf(ToolbarButton& button) {
    Target target = Target::whole(toolbar_);
    target.button = &button;
    hands().rightClick(target);
}

void ToolbarBinder::place(QToolButton& shown, int position) {
    if (auto* bar = qobject_cast<QToolBar*>(&widget())) {
        bar->addWidget(&shown);
        ToolbarButton& button = toolbar_.buttons()[static_cast<std::size_t>(position)];
        if (toolbar_.contextMenu() != nullptr &&
            bar->property("arrowBeside").toString() == toQt(button.key())) {
            bar->addWidget(&makeArrow(button, shown));
            shown.setContextMenuPolicy(Qt::CustomContextMenu);
            connect(&shown, &QWidget::customContextMenuRequested, this,
                    [this, &button] { openMenuOf(button); });
        }
        const QStringList groupEnds = bar->property("groupEnds").toStringList();
        if (groupEnds.contains(toQt(toolbar_.buttons()[static_cast<std::size_t>(position)].key())))
            bar->addSeparator();
        return;
    }
    auto* grid = qobject_cast<QGridLayout*>(widget().layout());
    if (grid == nullptr) {
        grid = new QGridLayout(&widget());
        grid->setContentsMargins(0, 0, 0, 0);
        grid->setSpacing(2);
    }
    const int perRow = buttonsPerRow();
    grid->addWidget(&shown, position / perRow, position % perRow);
    grid->setColumnStretch(perRow, 1);
}

QToolButton* ToolbarBinder::buttonOf(const ToolbarButton& button) const {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        if (&toolbar_.buttons()[i] == &button)
            return buttons_[i];
    }
    return nullptr;
}

void ToolbarBinder::show(Change /*change*/) {
    showButtons();
}

void ToolbarBinder::showButtons() {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const ToolbarButton& button = toolbar_.buttons()[i];
        buttons_[i]->setEnabled(button.enabled());
        const bool pressed = button.value() == 1 || button.picture().ends_with(kPressedPicture);
        // To a screen reader a button that can be checked is a check box; commands are plain buttons.
        if (pressed)
            buttons_[i]->setCheckable(true);
        buttons_[i]->setChecked(pressed);
        if (!button.picture().empty())
            buttons_[i]->setIcon(binding().pictures.icon(button.picture()));
    }
    if (isInPane())
        showTabStop();
}

// One Tab stop in a pane's bar: the button with the keyboard focus, otherwise the pressed one.
void ToolbarBinder::showTabStop() {
    QToolButton* stop = nullptr;
    for (QToolButton* button : buttons_) {
        if (!button->isEnabled())
            continue;
        const bool better =
            stop == nullptr || button->hasFocus() || (button->isChecked() && !stop->hasFocus());
        if (better)
            stop = button;
    }
    for (QToolButton* button : buttons_)
        button->setFocusPolicy(button == stop ? Qt::TabFocus : Qt::NoFocus);
}

bool ToolbarBinder::eventFilter(QObject* watched, QEvent* event) {
    const auto found = std::find(buttons_.begin(), buttons_.end(), watched);
    if (found == buttons_.end())
        return Binder::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut)
        QMetaObject::invokeMethod(
            this, [this] { showTabStop(); }, Qt::QueuedConnection);
    if (event->type() != QEvent::KeyPress)
        return false;
    return moveByKey(static_cast<std::size_t>(found - buttons_.begin()),
                     static_cast<QKeyEvent*>(event)->key());
}

bool ToolbarBinder::moveByKey(std::size_t from, int key) {
    const int count = static_cast<int>(buttons_.size());
    int step = 0;
    switch (key) {
    case Qt::Key_Left:
        step = -1;
        break;
    case Qt::Key_Right:
        step = 1;
        break;
    case Qt::Key_Up:
        step = -buttonsPerRow();
        break;
    case Qt::Key_Down:
        step = buttonsPerRow();
        break;
    default:
        return false;
    }
    for (int at = static_cast<int>(from) + step; at >= 0 && at < count; at += step) {
        QToolButton* button = buttons_[static_cast<std::size_t>(at)];
        if (!button->isEnabled())
            continue;
        button->setFocus(Qt::OtherFocusReason);
        showTabStop();
        break;
    }
    return true;
}

StatusBarBinder::StatusBarBinder(StatusBar& store, QStatusBar& bar, Binding& binding)
    : Binder(store, bar, binding), store_(store), bar_(bar) {
    for (const StatusPanel& panel : store_.panels()) {
        auto* label = new QLabel(&bar_);
        label->setObjectName(bar_.objectName() + QLatin1Char('_') + toQt(panel.key));
        label->setAccessibleName(toQt(panel.key));
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setMargin(3);
        label->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
        label->setMinimumWidth(kLeastPanel);
        // A long path must not make the window wide.
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        bar_.addWidget(label, panel.key == "Status" ? 4 : panel.key == "ProjectType" ? 1 : 2);
        panels_.push_back(label);
    }
    start();
}

const QLabel* StatusBarBinder::panel(std::string_view key) const {
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        if (store_.panels()[i].key == key)
            return panels_[i];
    }
    return nullptr;
}

void StatusBarBinder::show(Change /*change*/) {
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i]->setText(shownLine(store_.panels()[i].text));
        panels_[i]->setToolTip(toolTipOf(store_.panels()[i].text));
        // A name is shown whole where the window is narrow; of a path the tool tip shows the rest.
        if (store_.panels()[i].key != "Status")
            panels_[i]->setMinimumWidth(std::clamp(panels_[i]->sizeHint().width(), kLeastPanel, kWidestName));
    }
}

} // namespace zb
