#pragma once

#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"

#include <string>
#include <string_view>

namespace zb {

/// Asks for the value of a TR item in a statement.
class frmSetTRItemValue final : public Window {
public:
    explicit frmSetTRItemValue(Desktop& desktop);

    Label lblInformation{*this, "lblInformation"};
    Label lblSetItemValue{*this, "lblSetItemValue", "Set Item Value"};
    TextField txtTRItemName{*this, "txtTRItemName"};
    Label lblEqual{*this, "lblEqual", "="};
    TextField txtTRItemValue{*this, "txtTRItemValue"};
    Button cmdSet{*this, "cmdSet", "&Set"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};

    /// Runs modally. `type` is "STRING" or "NUMERIC".
    void reqeustTRItemValue(std::string_view name, std::string_view type);
    /// The value; empty when the user cancelled.
    std::string TRItemValue;

private:
    void accept();

    std::string itemType_;
};

} // namespace zb
