#include "demand.h"

#include "messages/secs2/item_codec.h"
#include "rehearsal/learner.h"
#include "rehearsal/recording.h"

using zb::fuzz::demand;

/// Any bytes are read as a log: what is read can be encoded, and gives definitions with names that differ.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const auto recording = zb::rehearsal::openLogText(std::string(zb::fuzz::asText(data, size)), {});
    zb::rehearsal::Learner learner;
    zb::rehearsal::RecordedMessage message;
    while (recording->next(message)) {
        std::string bytes;
        demand(zb::secs2::encodeItems(message.items, bytes), "what was read is encoded");
        demand(message.fault.empty() || message.items.empty(), "a message with a fault has no items");
        learner.add(message);
    }
    std::set<std::string> names;
    for (const zb::SECSMessageRecord& record : learner.records()) {
        demand(names.emplace(record.getName()).second, "names are unique");
        for (const zb::SECSItemRecord& item : record.getItems())
            demand(!item.getType().empty(), "every item has a type");
    }
    return 0;
}
