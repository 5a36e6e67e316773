#include "desktop/binders/bar_binders.h"

#include "controls/bars.h"
#include "desktop/pictures/pictures.h"
#include "desktop/plain_labels.h"
#include "desktop/qt_text.h"

#include <QGridLayout>
#include <QLabel>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

namespace zb {

namespace {

constexpr int kMainPictureSize = 24;
constexpr int kPanePictureSize = 22;

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
        // They come after the form; Tab reaches them where the form has their bar.
        QWidget::setTabOrder(buttons_.empty() ? &widget() : buttons_.back(), &shown);
        buttons_.push_back(&shown);
    }
}

QToolButton& ToolbarBinder::makeButton(ToolbarButton& button) {
    auto* shown = new QToolButton(&widget()); // the widget owns it
    const bool main = qobject_cast<QToolBar*>(&widget()) != nullptr;
    const int size = main ? kMainPictureSize : kPanePictureSize;
    shown->setIcon(binding().pictures.icon(button.key()));
    shown->setIconSize({size, size});
    shown->setAutoRaise(true);
    shown->setCheckable(true);
    shown->setFocusPolicy(main ? Qt::NoFocus : Qt::TabFocus);
    shown->setToolTip(toQt(button.toolTip()));
    shown->setAccessibleName(toQt(button.toolTip().empty() ? button.key() : button.toolTip()));
    shown->setObjectName(widget().objectName() + QLatin1Char('_') + toQt(button.key()));
    connect(shown, &QToolButton::clicked, this, [this, &button] {
        Target target = Target::whole(toolbar_);
        target.button = &button;
        const QPointer<Binder> alive(this);
        hands().click(target);
        // The widget has turned itself over; only the program presses buttons.
        if (alive)
            showButtons();
    });
    return *shown;
}

void ToolbarBinder::place(QToolButton& shown, int position) {
    if (auto* bar = qobject_cast<QToolBar*>(&widget())) {
        bar->addWidget(&shown);
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
    const int perRow = std::max(1, widget().property("buttonsPerRow").toInt());
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
        buttons_[i]->setChecked(button.value() == 1);
        if (!button.picture().empty())
            buttons_[i]->setIcon(binding().pictures.icon(button.picture()));
    }
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
        label->setMinimumWidth(80);
        // A long path must not hold the window wide.
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
        panels_[i]->setText(toQt(store_.panels()[i].text));
        panels_[i]->setToolTip(toolTipOf(store_.panels()[i].text));
    }
}

} // namespace zb
