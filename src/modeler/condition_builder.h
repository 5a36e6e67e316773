#pragma once

#include "modeler/condition_controls.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

class frmArrayInfo;
class SECSMessageRecord;

/// What the dialog that has a condition builder lends it, and in what the two dialogs differ.
struct ConditionHome {
    /// How the pressed button of an operator's toolbar is found.
    enum class OperatorReading { FirstPressed, LastPressed };
    /// What happens to the comparison when a condition is there already: its first button is pressed as by
    /// the user, or is pressed without a change of the pictures.
    enum class AfterDuplicate { PressFirst, MarkFirst };
    enum class EnterInValue { AddsCondition, DoesNothing };

    OperatorReading reading = OperatorReading::FirstPressed;
    AfterDuplicate afterDuplicate = AfterDuplicate::PressFirst;
    EnterInValue enterInValue = EnterInValue::DoesNothing;
    /// The selected SECS message, whose items give the types of values. May give null.
    std::function<const SECSMessageRecord*()> selectedMessage;
    /// The message in which the array index of a data item is looked up. May give null.
    std::function<const SECSMessageRecord*()> messageOfIndex;
};

/// Assembles conditions from the data items of a SECS message. Its lists are scratch space: what the dialogs
/// keep is the finished text alone. Handles the events of its controls, but for double clicks in the lists:
/// what becomes of a finished condition is the dialog's.
class ConditionBuilder {
public:
    /// The controls and the dialog for array indexes must outlive the builder.
    ConditionBuilder(ConditionControls& controls, frmArrayInfo& arrayDialog, ConditionHome home);
    ConditionBuilder(const ConditionBuilder&) = delete;
    ConditionBuilder& operator=(const ConditionBuilder&) = delete;

    /// Back to "==" and "and", with empty fields and lists. The data items stay.
    void reset();

    /// The condition in the row of that id; empty when there is none.
    std::string conditionOfId(std::string_view id) const;
    /// The finished text of a condition as it stands in a row; nothing when an id in it has no row, or when
    /// it has no end.
    std::optional<std::string> expandCondition(std::string_view condition) const;
    /// Both at once: the finished text of an id.
    std::optional<std::string> finishedConditionOf(std::string_view id) const;

private:
    void addSimpleCondition();
    void addComplexCondition();
    /// Forms the value in its field; false, and told, when it does not fit the item's type.
    bool formValue();
    void refuseValue(std::string text);
    void refuseDuplicate(const std::string& condition);
    std::string typeOfDataItem() const;
    const ToolbarButton* pressedButton(const Toolbar& bar) const;
    Desktop& desktop() const { return controls_.cmbDataItem.window().desktop(); }

    ConditionControls& controls_;
    frmArrayInfo& arrayDialog_;
    ConditionHome home_;
};

/// Lets an item be dropped on a field: plain text goes to `take`, a picture is refused.
void acceptTextDrops(Control& field, std::function<void(const std::string&)> take);

} // namespace zb
