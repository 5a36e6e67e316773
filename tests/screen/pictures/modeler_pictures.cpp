#include "screen/pictures/modeler_pictures.h"

#include "screen/pictures/photographer.h"

#include <QMainWindow>

namespace zb::test {

namespace {

class Tour {
public:
    Tour(ProgramOnScreen& program, Photographer& camera)
        : program_(program), camera_(camera), hands_(program.application.desktop) {}

    void takeModeler() {
        program_.application.showModeler();
        program_.screen.mainWindow()->activateWindow();
        open(modeler().tvwRcvTRMsg, "SelectLot");
        open(modeler().tvwRcvTRMsg, "LimitPressure");
        click(modeler().lvwSequence, 7);
        click(modeler().tvwRcvTRMsg, "Receive TRMessages");
        camera_.take(*program_.screen.mainWindow(), QStringLiteral("modeler"));
    }

    void takeReceivedMessage() {
        frmTRMessage& dialog = program_.application.frmTRMessage;
        dialog.updateRcvTRMessage("SelectLot");
        addSimple("RCMD", "PP-SELECT");
        addSimple("CPVAL3", "1");
        addSimple("CPVAL3", "2");
        press(dialog.builder.tlbOperator2, "or");
        addComplex("S2", "S3");
        press(dialog.builder.tlbOperator2, "and");
        addComplex("S1", "C1");
        dialog.builder.lvwComplexCondition.select(dialog.builder.lvwComplexCondition.shown().back());
        camera_.take(program_.form(dialog), QStringLiteral("tr-message"));
        dialog.hide();
    }

    void takeSentMessage() {
        frmTRMessage& dialog = program_.application.frmTRMessage;
        dialog.updateSndTRMessage("StepDone");
        for (int index = 1; const Node* node = dialog.tvwSelSECSMsg.nodes().at(index); ++index) {
            if (node->text().starts_with("F4"))
                click(dialog.tvwSelSECSMsg, index);
        }
        camera_.take(program_.form(dialog), QStringLiteral("tr-message-sent"));
        dialog.hide();
    }

    void takeItem() {
        frmTRItem& dialog = program_.application.frmTRItem;
        dialog.updateTRItem("SetConstants", "SetConstants_GROUP");
        for (int index = 1; Node* node = dialog.tvwStatement.nodes().at(index); ++index)
            node->setExpanded(true);
        camera_.take(program_.form(dialog), QStringLiteral("tr-item"));
        // Each dialog has its own; the one of this dialog is shown.
        for (Window* window : program_.application.desktop.windows()) {
            if (auto* array = dynamic_cast<frmArrayInfo*>(window))
                camera_.takeNext(*array, QStringLiteral("array-info"), [this, array] {
                    click(array->lvwArray, 0);
                    array->txtValue.setText("2");
                });
        }
        hands_.choose(dialog.cmbItemValue, "ECV");
        dialog.hide();
    }

    void takeSmallDialogs() {
        Desktop& desktop = program_.application.desktop;
        auto& value = dynamic_cast<frmSetTRItemValue&>(*desktop.find("frmSetTRItemValue"));
        camera_.takeNext(value, QStringLiteral("set-value"),
                         [&value] { value.txtTRItemValue.setText("Vacuum"); });
        value.reqeustTRItemValue("GROUP", "STRING");
        auto& sequence = dynamic_cast<frmAddSequence&>(*desktop.find("frmAddSequence"));
        camera_.takeNext(sequence, QStringLiteral("add-sequence"),
                         [&sequence] { sequence.txtSequence.setText("Recovery"); });
        sequence.requestSequenceName(modeler().sequenceView().sequences());
        auto& rename = dynamic_cast<frmRename&>(*desktop.find("frmRename"));
        camera_.takeNext(rename, QStringLiteral("rename"),
                         [&rename] { rename.txtNewName.setText("Warmup"); });
        rename.requestName("Rename sequence StartUp", "StartUp",
                           [](const std::string&) { return std::string(); });
    }

private:
    frmTRModeler& modeler() { return program_.application.frmTRModeler; }

    static void open(Tree& tree, const char* key) { tree.nodes().find(key)->setExpanded(true); }
    void click(Tree& tree, const char* key) { click(tree, tree.nodes().find(key)->index()); }
    void click(Tree& tree, int index) {
        Target target = Target::whole(tree);
        target.node = tree.nodes().at(index);
        hands_.click(target);
    }
    void click(List& list, std::size_t position) {
        Target target = Target::whole(list);
        target.row = list.shown().at(position);
        hands_.click(target);
    }
    void press(Toolbar& bar, const char* key) {
        Target target = Target::whole(bar);
        target.button = bar.find(key);
        hands_.click(target);
    }
    void addSimple(const char* item, const char* value) {
        ConditionControls& builder = program_.application.frmTRMessage.builder;
        hands_.choose(builder.cmbDataItem, item);
        builder.txtDataItemValue.setText(value);
        hands_.click(Target::whole(builder.cmdAddCondition));
    }
    void addComplex(const char* first, const char* second) {
        ConditionControls& builder = program_.application.frmTRMessage.builder;
        builder.txtOperand1.setText(first);
        builder.txtOperand2.setText(second);
        hands_.click(Target::whole(builder.cmdEdit));
    }

    ProgramOnScreen& program_;
    Photographer& camera_;
    UserHands hands_;
};

} // namespace

void photographModeler(ProgramOnScreen& program, Photographer& camera) {
    Tour tour(program, camera);
    tour.takeModeler();
    tour.takeReceivedMessage();
    tour.takeSentMessage();
    tour.takeItem();
    tour.takeSmallDialogs();
}

} // namespace zb::test
