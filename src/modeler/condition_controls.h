#pragma once

#include "platform/stores/bars.h"
#include "platform/stores/combo.h"
#include "platform/stores/list.h"
#include "platform/stores/simple_controls.h"
#include "platform/stores/text_field.h"
#include "platform/stores/window.h"

#include <string>

namespace zb {

/// The fields of a condition builder, of the same names in each dialog that has one but for the button that
/// adds a complex condition.
class ConditionControls {
public:
    ConditionControls(Window& window, std::string editButton);

    Label lblDataItem;
    Combo cmbDataItem;
    Toolbar tlbOperator1; ///< "==" and "!="
    TextField txtDataItemValue;
    Button cmdAddCondition;
    Label lblSimpleCondition;
    List lvwSimpleCondition;
    TextField txtOperand1;
    Toolbar tlbOperator2; ///< "and" and "or"
    TextField txtOperand2;
    Button cmdEdit; ///< bears the name that its dialog gives it
    Label lblComplexCondition;
    List lvwComplexCondition;
};

} // namespace zb
