#pragma once

#include "modeler/condition_controls.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

class frmArrayInfo;
class SECSMessageRecord;

/// What a dialog provides to its condition builder, and the differences between the two dialogs.
struct ConditionHome {
    /// How the pressed button of an operator's toolbar is found.
    enum class OperatorReading { FirstPressed, LastPressed };
    /// What happens to the comparison when there is a condition already: its first button is pressed as by
    /// the user, or without a change of the pictures.
    enum class AfterDuplicate { PressFirst, MarkFirst };
    enum class EnterInValue { AddsCondition, DoesNothing };

    OperatorReading reading = OperatorReading::FirstPressed;
    AfterDuplicate afterDuplicate = AfterDuplicate::PressFirst;
    EnterInValue enterInValue = EnterInValue::DoesNothing;
    /// The selected SECS message, whose items give the types of values. May return null.
    std::function<const SECSMessageRecord*()> selectedMessage;
    /// The message in which the array index of a data item is looked up. May return null.
    std::function<const SECSMessageRecord*()> messageOfIndex;
};

/// Builds conditions from the data items of a SECS message. Its lists are temporary: the dialogs keep only
/// the finished text. Handles the events of its controls, except for double clicks in the lists: the dialog
/// decides what to do with a finished condition.
class ConditionBuilder {
public:
    /// The controls and the dialog for array indexes must outlive the builder.
    ConditionBuilder(ConditionControls& controls, frmArrayInfo& arrayDialog, ConditionHome home);
    ConditionBuilder(const ConditionBuilder&) = delete;
    ConditionBuilder& operator=(const ConditionBuilder&) = delete;

    /// Resets the operators to "==" and "and", and clears fields and lists. The data items stay.
    void reset();

    /// The condition in the row with that id; empty when there is none.
    std::string conditionOfId(std::string_view id) const;
    /// The finished text of the condition of a row; nothing when an id in it has no row, or when it refers to
    /// itself.
    std::optional<std::string> expandCondition(std::string_view condition) const;
    /// Both in one step: the finished text of an id.
    std::optional<std::string> finishedConditionOf(std::string_view id) const;

    /// Replaces the rows of both lists by those that make this finished text, and selects the row of the
    /// whole. False, and nothing changed, for a text that cannot be understood.
    bool takeApart(std::string_view finished);
    /// Puts the selected simple condition into the fields that make one. False without a selected row, or
    /// for one that cannot be understood.
    bool takeIntoFields();
    /// Makes a simple condition of the fields and puts it in the place of the selected one, whose id stays.
    /// A value that does not fit is refused as when it is added.
    void replaceByFields();

private:
    void addSimpleCondition();
    /// What the fields say; nothing, after a message, for a value that does not fit.
    std::optional<std::string> conditionOfFields();
    void addComplexCondition();
    /// Converts the value in its field; false, after a message, when it does not fit the item's type.
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

/// Allows an item to be dropped on a field: plain text goes to `take`, a picture is refused.
void acceptTextDrops(Control& field, std::function<void(const std::string&)> take);

} // namespace zb
