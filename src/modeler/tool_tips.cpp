#include "modeler/tool_tips.h"

#include "messages/message_store.h"
#include "model/tr_message_record.h"

namespace zb {

namespace {

std::string describeSECSMessage(const std::string& name, const SECSMessageStore& messages) {
    if (name.empty())
        return "No SECS message is chosen";
    const std::string place = streamAndFunction(messages, name);
    return name + (place.empty() ? " is not among the SECS messages" : ", " + place);
}

} // namespace

std::string streamAndFunction(const SECSMessageStore& messages, std::string_view name) {
    const SECSMessageRecord* message = messages.getByName(name);
    if (message == nullptr)
        return {};
    return "S" + std::to_string(message->getStream()) + " F" + std::to_string(message->getFunction());
}

std::string messageToolTip(const TRMessageRecord& record, const SECSMessageStore& messages) {
    std::string text = record.Name() + "\n" + describeSECSMessage(record.SECSMessage(), messages);
    if (!record.Condition().empty())
        text += "\n" + record.Condition();
    return text;
}

std::string itemToolTip(const TRMessageRecord& record, const TRItemRecord& item,
                        const SECSMessageStore& messages) {
    const std::string source = item.Value().empty() ? "no data item" : item.Value();
    return item.Name() + " of " + record.Name() + "\n" + source + " of " +
           describeSECSMessage(record.SECSMessage(), messages);
}

} // namespace zb
