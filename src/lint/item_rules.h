#pragma once

namespace zb {

struct MessageContext;
class Report;

// Rules of the items of a message: what is published of its structure and of its data items.

void checkStructure(const MessageContext& context, Report& report);
void checkItemFormats(const MessageContext& context, Report& report);
void checkItemLengths(const MessageContext& context, Report& report);
void checkItemCodes(const MessageContext& context, Report& report);
void checkItemNames(const MessageContext& context, Report& report);

// Rules of values: what a build cuts off without a word.

void checkValueRanges(const MessageContext& context, Report& report);
void checkValueLengths(const MessageContext& context, Report& report);

} // namespace zb
