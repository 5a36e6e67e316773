#pragma once

namespace zb {

struct MessageContext;
class Report;

// Rules of the head of a message: what is published of its stream and function.

void checkMessageKnown(const MessageContext& context, Report& report);
void checkDirection(const MessageContext& context, Report& report);
void checkWaitMissing(const MessageContext& context, Report& report);
void checkWaitForbidden(const MessageContext& context, Report& report);

// Rules of a message among the others.

void checkReplyMissing(const MessageContext& context, Report& report);
void checkReplyDirection(const MessageContext& context, Report& report);
void checkToldApart(const MessageContext& context, Report& report);
void checkKeysDiffer(const MessageContext& context, Report& report);
void checkKeyKept(const MessageContext& context, Report& report);

// Rules of the key item.

void checkKeyPlace(const MessageContext& context, Report& report);
void checkKeyLength(const MessageContext& context, Report& report);
void checkKeySingle(const MessageContext& context, Report& report);

} // namespace zb
