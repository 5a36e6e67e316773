#include "lint/message_rules.h"

#include "lint/rule.h"
#include "lint/rule_context.h"

#include <algorithm>

namespace zb {

namespace {

using Reply = PublishedLayout::Reply;

bool requiresReply(const MessageContext& context) {
    return context.published != nullptr && context.published->layout.reply == Reply::Yes;
}

bool forbidsReply(const MessageContext& context) {
    return context.published != nullptr && context.published->layout.reply == Reply::No;
}

std::string wayOf(std::string_view direction) {
    if (direction == "H->E")
        return "from the host to the equipment";
    return direction == "H<-E" ? "from the equipment to the host" : "both ways";
}

} // namespace

void checkMessageKnown(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    if (message.isNumbered() && context.published == nullptr &&
        !isOwnMessage(message.stream, message.function) && !isAssigned(message.stream, message.function))
        report.tell(message.place(), message.streamFunction() + " is not assigned to a message");
}

void checkDirection(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    if (context.published == nullptr || message.direction.empty())
        return;
    const std::string_view allowed = context.published->layout.direction;
    if (!DirectionSet::of(allowed).holds(DirectionSet::of(message.direction)))
        report.tell(message.place(), message.streamFunction() + " goes " + wayOf(allowed) + ", and not " +
                                         wayOf(message.direction));
}

void checkWaitMissing(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    if (message.isPrimary() && !message.wait && requiresReply(context))
        report.tell(message.place(), message.streamFunction() + " needs a reply, and has no W");
}

void checkWaitForbidden(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    if (!message.wait || !message.isNumbered())
        return;
    if (!message.isPrimary())
        report.tell(message.place(), message.streamFunction() + " is a reply, and has W");
    else if (forbidsReply(context))
        report.tell(message.place(), message.streamFunction() + " has no reply, and has W");
}

void checkReplyMissing(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    const bool isRequired = requiresReply(context);
    const auto needsReply = [&](bool wait) { return wait || isRequired; };
    const int reply = message.function + 1;
    if (!message.isNumbered() || !message.isPrimary() || reply > 255 || forbidsReply(context) ||
        !needsReply(message.wait) || !context.index.group(message.stream, reply).all.empty())
        return;
    // Of several messages with one reply, the first is reported.
    const auto& group = context.index.group(message.stream, message.function).all;
    const auto first = std::find_if(group.begin(), group.end(),
                                    [&](const MessageSummary* other) { return needsReply(other->wait); });
    if (first == group.end() || (*first)->nodeIndex == message.nodeIndex)
        report.tell(message.place(), "The reply S" + std::to_string(message.stream) + "F" +
                                         std::to_string(reply) + " is not defined");
}

void checkReplyDirection(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    // Of a published message the direction itself is checked.
    if (!message.isNumbered() || message.isPrimary() || message.function == 0 ||
        context.published != nullptr || message.direction.empty())
        return;
    const auto& primaries = context.index.group(message.stream, message.function - 1).all;
    if (primaries.empty())
        return;
    const DirectionSet direction = DirectionSet::of(message.direction);
    const bool answers = std::any_of(primaries.begin(), primaries.end(), [&](const MessageSummary* primary) {
        return (primary->direction.toHost && direction.toEquipment) ||
               (primary->direction.toEquipment && direction.toHost);
    });
    if (!answers)
        report.tell(message.place(), message.streamFunction() + " goes the same way as the message \"" +
                                         primaries.front()->name + "\" that it answers");
}

} // namespace zb
