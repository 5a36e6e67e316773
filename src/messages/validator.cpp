#include "messages/validator.h"

#include "platform/tree/node.h"

namespace zb {

Validator::Checked Validator::check(const Node& item) {
    item_.parseText(item.text());
    if (OptionalFault fault = nameFault(item_, itemNames_))
        return {fault, std::nullopt};
    std::optional<std::string> canonical = changedItemText(item.text(), item_, codePage_);
    OptionalFault fault = valueFault(canonical ? *canonical : item.text(), item.children());
    return {fault, std::move(canonical)};
}

} // namespace zb
