#include "outputs/tmd_rules.h"

#include "messages/message_store.h"
#include "model/condition.h"
#include "model/tr_message_record.h"
#include "platform/text.h"

namespace zb {

bool isSECSMessageSelected(const TRMessageRecord& record) {
    return !isBlank(record.SECSMessage()) && record.SECSMessage() != "NONE";
}

bool isSECSMessageKnown(const TRMessageRecord& record, const SECSMessageStore& messages) {
    return messages.getByName(record.SECSMessage()) != nullptr;
}

std::optional<std::string> DefaultTRMessages::add(const TRMessageRecord& record, int received) {
    if (record.Direction() != received || !isDefaultCondition(record.Condition()))
        return std::nullopt;
    const auto [registered, isNew] = names_.emplace(upper(record.SECSMessage()), record.Name());
    return isNew ? std::nullopt : std::optional(registered->second);
}

bool DefaultTRMessages::isDefaultRegistered(std::string_view secsMessage) const {
    const auto found = names_.find(upper(secsMessage));
    return found != names_.end() && !isBlank(found->second);
}

} // namespace zb
