#include "modeler/condition_controls.h"

#include <utility>

namespace zb {

ConditionControls::ConditionControls(Window& window, std::string editButton)
    : lblDataItem(window, "lblDataItem", "DataItems"), cmbDataItem(window, "cmbDataItem"),
      tlbOperator1(window, "tlbOperator1"), txtDataItemValue(window, "txtDataItemValue"),
      cmdAddCondition(window, "cmdAddCondition", "A&dd Condition"),
      lblSimpleCondition(window, "lblSimpleCondition", "SimpleCondition"),
      lvwSimpleCondition(window, "lvwSimpleCondition"), txtOperand1(window, "txtOperand1"),
      tlbOperator2(window, "tlbOperator2"), txtOperand2(window, "txtOperand2"),
      cmdEdit(window, std::move(editButton), "&Edit"),
      lblComplexCondition(window, "lblComplexCondition", "ComplexCondition"),
      lvwComplexCondition(window, "lvwComplexCondition") {
    tlbOperator1.addButton("==", "Equal");
    tlbOperator1.addButton("!=", "Not equal");
    tlbOperator2.addButton("and", "Both conditions");
    tlbOperator2.addButton("or", "One of the conditions");
    txtOperand1.setReadOnly(true);
    txtOperand2.setReadOnly(true);
    for (List* list : {&lvwSimpleCondition, &lvwComplexCondition}) {
        list->addColumn("ID", 600);
        list->addColumn("Condition", 3000);
    }
}

} // namespace zb
