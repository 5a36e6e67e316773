#include "desktop/forms/forms.h"

#include "desktop/forms/cell_editor.h"
#include "desktop/forms/editor_splitter.h"
#include "desktop/forms/paired_scrolling.h"
#include "desktop/forms/sequence_chart.h"
#include "desktop/forms/shared_splitter.h"
#include "desktop/forms/stale_tint.h"
#include "editor/frm_sec_editor.h"
#include "modeler/frm_array_info.h"

#include "ui_frmAbout.h"
#include "ui_frmAddSequence.h"
#include "ui_frmArrayInfo.h"
#include "ui_frmCompare.h"
#include "ui_frmFind.h"
#include "ui_frmMain.h"
#include "ui_frmNewProject.h"
#include "ui_frmOption.h"
#include "ui_frmRehearsal.h"
#include "ui_frmRename.h"
#include "ui_frmResult.h"
#include "ui_frmSECSEditor.h"
#include "ui_frmSetTRItemValue.h"
#include "ui_frmTRItem.h"
#include "ui_frmTRMessage.h"
#include "ui_frmTRModeler.h"
#include "ui_frmWorkbench.h"
#include "ui_pnlCompare.h"
#include "ui_pnlGo.h"
#include "ui_pnlHistory.h"
#include "ui_pnlKeys.h"
#include "ui_pnlLog.h"
#include "ui_pnlMarks.h"
#include "ui_pnlProblems.h"
#include "ui_pnlSearch.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>
#include <array>

namespace zb {

namespace {

template<typename Layout, typename Root = QWidget>
std::unique_ptr<QWidget> make() {
    auto form = std::make_unique<Root>();
    Layout().setupUi(form.get());
    return form;
}

struct Form {
    const char* window;
    std::unique_ptr<QWidget> (*make)();
};

constexpr std::array kForms{
    Form{"frmMain", &make<Ui::frmMain, QMainWindow>},
    Form{"frmSECSEditor", &make<Ui::frmSECSEditor>},
    Form{"frmTRModeler", &make<Ui::frmTRModeler>},
    Form{"frmTRMessage", &make<Ui::frmTRMessage>},
    Form{"frmTRItem", &make<Ui::frmTRItem>},
    Form{"frmArrayInfo", &make<Ui::frmArrayInfo>},
    Form{"frmSetTRItemValue", &make<Ui::frmSetTRItemValue>},
    Form{"frmAddSequence", &make<Ui::frmAddSequence>},
    Form{"frmRename", &make<Ui::frmRename>},
    Form{"frmFind", &make<Ui::frmFind>},
    Form{"frmNewProject", &make<Ui::frmNewProject>},
    Form{"frmOption", &make<Ui::frmOption>},
    Form{"frmResult", &make<Ui::frmResult>},
    Form{"frmAbout", &make<Ui::frmAbout>},
    Form{"frmWorkbench", &make<Ui::frmWorkbench>},
    Form{"frmCompare", &make<Ui::frmCompare>},
    Form{"frmRehearsal", &make<Ui::frmRehearsal>},
};

// The panes of the workbench, in the order of their buttons.
constexpr std::array kPanes{
    Form{"pnlHistory", &make<Ui::pnlHistory>},
    Form{"pnlLog", &make<Ui::pnlLog>},
    Form{"pnlProblems", &make<Ui::pnlProblems>},
    Form{"pnlKeys", &make<Ui::pnlKeys>},
    Form{"pnlMarks", &make<Ui::pnlMarks>},
    Form{"pnlCompare", &make<Ui::pnlCompare>},
    Form{"pnlGo", &make<Ui::pnlGo>},
    Form{"pnlSearch", &make<Ui::pnlSearch>},
};

struct Share {
    const char* splitter;
    int percentOfFirst;
};

// The positions of the splitters until the user moves them.
constexpr std::array kShares{
    Share{"modelerSplitter", 40}, Share{"treeSplitter", 60},     Share{"tableSplitter", 50},
    Share{"messageSplitter", 45}, Share{"itemSplitter", 50},     Share{"rehearsalSplitter", 56},
    Share{"valuesSplitter", 60},  Share{"recordedSplitter", 60}, Share{"findingsSplitter", 45},
    Share{"detailsSplitter", 36}, Share{"modelSplitter", 42},
};

// A label names the field that is its buddy for screen readers, except for lists and trees; buttons have
// their captions. A widget with neither is named by its tool tip, which otherwise is a description.
bool hasCaption(const QWidget& widget, const QList<QLabel*>& labels) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return !button->text().isEmpty();
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return !group->title().isEmpty();
    return std::any_of(labels.begin(), labels.end(),
                       [&](const QLabel* label) { return label->buddy() == &widget; });
}

void nameForReaders(QWidget& form) {
    const QList<QLabel*> labels = form.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (auto* view = qobject_cast<QAbstractItemView*>(label->buddy()))
            view->setAccessibleName(label->text());
    }
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        if (!widget->accessibleName().isEmpty() || widget->toolTip().isEmpty())
            continue;
        if (hasCaption(*widget, labels))
            widget->setAccessibleDescription(widget->toolTip());
        else
            widget->setAccessibleName(widget->toolTip());
    }
}

// Each pane has a button in the strip: `chkLog` opens `pnlLog`.
void addPanes(QWidget& workbench) {
    auto* column = workbench.findChild<QWidget*>(QStringLiteral("paneColumn"));
    auto* buttons = workbench.findChild<QLayout*>(QStringLiteral("paneButtons"));
    for (const Form& pane : kPanes) {
        column->layout()->addWidget(pane.make().release());
        auto* button = new QToolButton(&workbench); // the layout's widget owns it
        button->setObjectName(QStringLiteral("chk") + QLatin1String(pane.window).mid(3));
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        buttons->addWidget(button);
    }
}

// The filter of the model is a part of the workbench, and is shown above the trees that it filters. Whichever
// form comes second finds the other one.
void bringFilterToModeler(const QWidget& form) {
    auto* column = form.window()->findChild<QWidget*>(QStringLiteral("modelFilterColumn"));
    const auto* modeler = form.window()->findChild<QWidget*>(QStringLiteral("frmTRModeler"));
    if (column == nullptr || modeler == nullptr || modeler->isAncestorOf(column))
        return;
    // The row is as high as its field; the trees below it take the rest.
    column->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    if (auto* layout = qobject_cast<QBoxLayout*>(modeler->layout()))
        layout->insertWidget(0, column);
}

} // namespace

std::unique_ptr<QWidget> makeForm(const std::string& window) {
    for (const Form& form : kForms) {
        if (form.window != window)
            continue;
        std::unique_ptr<QWidget> made = form.make();
        if (window == "frmWorkbench")
            addPanes(*made);
        return made;
    }
    return std::make_unique<QWidget>();
}

void finishForm(Window& window, QWidget& form) {
    nameForReaders(form);
    if (auto* hidden = form.findChild<QWidget*>(QStringLiteral("hiddenParts")))
        hidden->hide();
    for (const Share& share : kShares) {
        // The splitter owns the object that keeps its shares; the form owns the one that works on it.
        if (auto* splitter = form.findChild<QSplitter*>(QLatin1String(share.splitter)))
            new SharedSplitter(*splitter, share.percentOfFirst);
    }
    bringFilterToModeler(form);
    if (auto* dialog = dynamic_cast<frmArrayInfo*>(&window))
        new CellEditor(*dialog, form);
    if (window.name() == "frmCompare")
        new PairedScrolling(form);
    if (auto* sequence = form.findChild<QTreeView*>(QStringLiteral("lvwSequence"));
        sequence != nullptr && window.name() == "frmRehearsal")
        sequence->setItemDelegateForColumn(1, new SequenceChart(sequence));
    if (auto* editor = dynamic_cast<frmSECSEditor*>(&window)) {
        new EditorSplitter(*editor, form);
        new StaleTint(form);
    }
}

} // namespace zb
