#pragma once

#include "controls/bars.h"
#include "controls/combo.h"
#include "controls/list.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"

#include <string>

namespace zb {

/// The fields of a condition builder. They have the same names in each dialog, except for the button that
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
    Button cmdEdit; ///< has the name that its dialog gives it
    Label lblComplexCondition;
    List lvwComplexCondition;
};

} // namespace zb
