#include "desktop/workbench_place.h"

#include "controls/desktop.h"
#include "controls/simple_controls.h"
#include "controls/window.h"
#include "desktop/accessibility/accessible_notice.h"
#include "desktop/binders/binder.h"
#include "desktop/layout_memory.h"
#include "desktop/qt_text.h"
#include "workbench/frm_workbench.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace zb {

namespace {

constexpr int kFirstHeight = 200;
constexpr int kLeastHeight = 60;
constexpr int kGrip = 5;

template<typename Widget>
Widget& part(const QWidget& form, const char* name) {
    return *form.findChild<Widget*>(QLatin1String(name));
}

QString memoryOf(const QWidget& pane) {
    return QStringLiteral("frmWorkbench/") + pane.objectName();
}

} // namespace

WorkbenchPlace::WorkbenchPlace(Window& workbench, QWidget& form, QMainWindow& main, Binding& binding,
                               LayoutMemory& layout, std::function<void()> returnFocus)
    : workbench_(workbench), form_(form), column_(part<QWidget>(form, "paneColumn")),
      strip_(part<QWidget>(form, "stripColumn")), splitter_(part<QSplitter>(main, "workbenchSplitter")),
      binding_(binding), layout_(layout), returnFocus_(std::move(returnFocus)) {
    for (const char* button : {"cmdClosePane", "cmdCloseNotice"})
        part<QToolButton>(form_, button).setIcon(form_.style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    strip_.setFixedHeight(strip_.sizeHint().height());
    splitter_.addWidget(&form_);
    splitter_.setStretchFactor(0, 1);
    splitter_.setStretchFactor(1, 0);
    for (QWidget* pane : column_.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (pane->objectName().startsWith(QLatin1String("pnl")))
            pane->installEventFilter(this);
    }
    column_.hide();
    splitter_.setHandleWidth(0);
    form_.setFixedHeight(strip_.height());
    addKeys(main);
    letDocumentsShrink();
    AccessibleNotice::install();
    if (auto* strip = dynamic_cast<frmWorkbench*>(&workbench_); strip != nullptr)
        strip->notices.onNews = [this] { AccessibleNotice::report(part<QLabel>(form_, "lblNotice")); };
}

WorkbenchPlace::~WorkbenchPlace() {
    // The window may have ended before.
    if (auto* strip = dynamic_cast<frmWorkbench*>(binding_.desktop.find("frmWorkbench")); strip != nullptr)
        strip->notices.onNews = nullptr;
    if (opened_ != nullptr)
        layout_.rememberHeight(memoryOf(*opened_), form_.height() - strip_.height());
}

// Of all documents only the one in front needs its least height.
void WorkbenchPlace::letDocumentsShrink() {
    auto* documents = splitter_.findChild<QMdiArea*>();
    if (documents == nullptr)
        return;
    connect(documents, &QMdiArea::subWindowActivated, this, [documents] {
        if (const QMdiSubWindow* shown = documents->currentSubWindow(); shown != nullptr)
            documents->setMinimumHeight(shown->minimumSizeHint().height());
    });
}

void WorkbenchPlace::addKeys(QMainWindow& main) {
    int number = 0;
    for (const QToolButton* button : strip_.findChildren<QToolButton*>()) {
        if (!button->objectName().startsWith(QLatin1String("chk")) || number == 9)
            continue;
        const QKeySequence key(static_cast<int>(Qt::ALT) | (Qt::Key_1 + number));
        ++number;
        connect(new QShortcut(key, &main), &QShortcut::activated, this,
                [this, name = button->objectName()] { toggle(name); });
    }
    connect(new QShortcut(Qt::Key_F6, &main), &QShortcut::activated, this, [this] { turn(); });
    auto* escape = new QShortcut(Qt::Key_Escape, &form_);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, [this] { leave(); });
}

bool WorkbenchPlace::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent)
        open(static_cast<QWidget&>(*watched));
    else if (event->type() == QEvent::HideToParent)
        close(static_cast<QWidget&>(*watched));
    return false;
}

void WorkbenchPlace::open(QWidget& pane) {
    if (opened_ == &pane)
        return;
    opened_ = &pane;
    const int all = splitter_.height();
    const int remembered = layout_.height(memoryOf(pane));
    const int height = strip_.height() + (remembered == 0 ? kFirstHeight : remembered);
    column_.show();
    splitter_.setHandleWidth(kGrip);
    // The contents of a pane are never crowded.
    column_.layout()->activate();
    form_.setMinimumHeight(strip_.height() + std::max(kLeastHeight, column_.minimumSizeHint().height()));
    form_.setMaximumHeight(QWIDGETSIZE_MAX);
    splitter_.setSizes({std::max(0, all - kGrip - height), height});
}

void WorkbenchPlace::close(const QWidget& pane) {
    if (opened_ != &pane)
        return;
    opened_ = nullptr;
    layout_.rememberHeight(memoryOf(pane), form_.height() - strip_.height());
    const int all = splitter_.height();
    column_.hide();
    splitter_.setHandleWidth(0);
    form_.setFixedHeight(strip_.height());
    // A splitter keeps the room of a part that has become smaller.
    splitter_.setSizes({std::max(0, all - strip_.height()), strip_.height()});
}

bool WorkbenchPlace::hasKeyboard() const {
    const QWidget* focused = QApplication::focusWidget();
    return focused != nullptr && form_.isAncestorOf(focused);
}

void WorkbenchPlace::toggle(const QString& button) {
    Control* store = workbench_.find(fromQt(button));
    if (store == nullptr || !binding_.hands.click(Target::whole(*store)).empty())
        return;
    if (opened_ != nullptr)
        focusPane();
    else
        returnFocus_();
}

// Of the controls that take the focus, only those of the open pane can be used.
bool WorkbenchPlace::focusPane() {
    const auto& controls = workbench_.controls();
    const auto found = std::find_if(controls.begin(), controls.end(), [](const Control* control) {
        return control->takesFocus() && control->usable();
    });
    return found != controls.end() && binding_.hands.focus(**found).empty();
}

void WorkbenchPlace::turn() {
    if (hasKeyboard()) {
        leave();
        return;
    }
    if (opened_ != nullptr && focusPane())
        return;
    for (QToolButton* button : strip_.findChildren<QToolButton*>()) {
        if (!button->isVisible() || !button->isEnabled())
            continue;
        button->setFocus(Qt::OtherFocusReason);
        return;
    }
}

void WorkbenchPlace::leave() {
    if (opened_ != nullptr) {
        if (Button* close = workbench_.cancelButton(); close != nullptr)
            binding_.hands.click(Target::whole(*close));
    }
    returnFocus_();
}

} // namespace zb
