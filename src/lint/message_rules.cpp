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

/// A direction that the standard does not let the message have is a fault of its own.
bool mayGoSo(const PublishedStandard::Message* published, DirectionSet direction) {
    return published == nullptr || DirectionSet::of(published->layout.direction).holds(direction);
}

DirectionSet turned(DirectionSet direction) {
    return {direction.toHost, direction.toEquipment};
}

std::string_view textOf(DirectionSet direction) {
    if (direction.toHost == direction.toEquipment)
        return "H<->E";
    return direction.toHost ? "H<-E" : "H->E";
}

/// The ways of the replies that a primary message waits for and the project does not define.
DirectionSet missingReplies(DirectionSet primary, const MessageIndex::Summaries& replies) {
    DirectionSet missing = turned(primary);
    for (const MessageSummary* reply : replies) {
        missing.toHost = missing.toHost && !reply->direction.toHost;
        missing.toEquipment = missing.toEquipment && !reply->direction.toEquipment;
    }
    return missing;
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
    const DirectionSet direction = DirectionSet::of(message.direction);
    if (!message.isNumbered() || !message.isPrimary() || reply > 255 || forbidsReply(context) ||
        !needsReply(message.wait))
        return;
    const auto& replies = context.index.group(message.stream, reply).all;
    const DirectionSet missing = missingReplies(direction, replies);
    if (!missing.overlaps(missing))
        return;
    const auto& group = context.index.group(message.stream, message.function).all;
    // Replies that all go the wrong way are reported themselves.
    const bool isAnswered = std::any_of(replies.begin(), replies.end(), [&](const MessageSummary* other) {
        return std::any_of(group.begin(), group.end(), [&](const MessageSummary* primary) {
            return primary->direction.overlaps(turned(other->direction));
        });
    });
    if (!replies.empty() && (!isAnswered || !mayGoSo(context.published, direction)))
        return;
    // Of several messages with one reply, the first is reported.
    const auto first = std::find_if(group.begin(), group.end(), [&](const MessageSummary* other) {
        return needsReply(other->wait) && missingReplies(other->direction, replies).overlaps(missing);
    });
    if (first != group.end() && (*first)->nodeIndex != message.nodeIndex)
        return;
    const std::string way = replies.empty() ? "" : " " + wayOf(textOf(missing));
    report.tell(message.place(), "The reply S" + std::to_string(message.stream) + "F" +
                                     std::to_string(reply) + way + " is not defined");
}

void checkReplyDirection(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    const DirectionSet direction = DirectionSet::of(message.direction);
    if (!message.isNumbered() || message.isPrimary() || message.function == 0 || message.direction.empty() ||
        !mayGoSo(context.published, direction))
        return;
    const auto& primaries = context.index.group(message.stream, message.function - 1).all;
    const auto* published = context.standard.message(message.stream, message.function - 1);
    const bool answers = std::any_of(primaries.begin(), primaries.end(), [&](const MessageSummary* primary) {
        return primary->direction.overlaps(turned(direction)) || !mayGoSo(published, primary->direction);
    });
    if (!primaries.empty() && !answers)
        report.tell(message.place(), message.streamFunction() + " goes the same way as the message \"" +
                                         primaries.front()->name + "\" that it answers");
}

} // namespace zb
