#include "demand.h"

#include "messages/message_record.h"
#include "messages/sml/sml.h"
#include "messages/sml_text.h"
#include "platform/code_page.h"
#include "platform/text.h"

#include <set>

using zb::fuzz::demand;

namespace {

bool isDirection(std::string_view direction) {
    return direction == "H->E" || direction == "H<-E" || direction == "H<->E";
}

std::vector<zb::SECSMessageRecord> recordsOf(const zb::SmlLibrary& library) {
    std::vector<zb::SECSMessageRecord> records;
    for (const zb::SmlMessage& message : library.messages) {
        const std::string head = std::string(message.name) + ": S" + std::to_string(message.stream) + " F" +
                                 std::to_string(message.function) + " " + std::string(message.direction);
        demand(records.emplace_back().parseTexts(head, message.description, message.body).empty(),
               "a message that was read has a head");
        for (zb::SECSItemRecord& item : records.back().getItems())
            demand(item.parseText(zb::composeItemText(item)).empty(), "its items have the form of items");
    }
    return records;
}

} // namespace

/// Any text is read as SML: the result follows the grammar of definitions, and what is written from it can be
/// read again.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const zb::CodePage kCodePage(1252);
    const std::string text = zb::sanitizeUtf8(zb::fuzz::asText(data, size));
    const zb::SmlLibrary library = zb::readSml(text, kCodePage);
    std::set<std::string> names;
    for (const zb::SmlMessage& message : library.messages) {
        demand(names.insert(zb::upper(message.name)).second, "names are unique");
        demand(message.name.find_first_of(": \r\n") == std::string_view::npos, "a name is one word");
        demand(message.description.find_first_of(":\r\n") == std::string_view::npos,
               "a description is one line");
        demand(isDirection(message.direction), "a message has a direction");
    }
    const std::vector<zb::SECSMessageRecord> records = recordsOf(library);
    std::vector<const zb::SECSMessageRecord*> all;
    for (const zb::SECSMessageRecord& record : records)
        all.push_back(&record);
    demand(zb::readSml(zb::composeSml(all), kCodePage).messages.size() <= records.size(),
           "what is written holds no message more");
    return 0;
}
