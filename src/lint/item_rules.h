#pragma once

#include <functional>
#include <string>

namespace zb {

struct CheckedItem;
struct MessageContext;
class Report;

// Rules of the items of a message: what is published of its structure and of its data items.

void checkStructure(const MessageContext& context, Report& report);
void checkItemFormats(const MessageContext& context, Report& report);
void checkItemLengths(const MessageContext& context, Report& report);
void checkItemCodes(const MessageContext& context, Report& report);
void checkItemNames(const MessageContext& context, Report& report);

/// Calls `visit` with each item that has a value outside the published codes, and what to say of it.
void visitUnknownCodes(const MessageContext& context,
                       const std::function<void(const CheckedItem& item, std::string text)>& visit);

// Rules of values: what a build cuts off without a word.

void checkValueRanges(const MessageContext& context, Report& report);
void checkValueLengths(const MessageContext& context, Report& report);

} // namespace zb
