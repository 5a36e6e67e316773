#include "demand.h"

#include "messages/secs2/item_codec.h"
#include "messages/secs2/sml_data.h"

using zb::fuzz::demand;

/// Any bytes are decoded as the data of a message, and any text as SML data: what was read is written and
/// read again as the same.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view input = zb::fuzz::asText(data, size);
    zb::secs2::Items items;
    zb::secs2::Items again;
    if (const auto fault = zb::secs2::decodeItems(input, items)) {
        demand(fault->offset <= size, "a fault has a place within the input");
    } else {
        std::string bytes;
        demand(zb::secs2::encodeItems(items, bytes), "what was decoded is encoded");
        demand(bytes.size() <= size, "with the fewest length bytes");
        demand(!zb::secs2::decodeItems(bytes, again) && again == items, "and decodes to the same items");
    }
    if (const auto fault = zb::secs2::readSmlData(input, items)) {
        demand(fault->offset <= size, "a fault has a place within the text");
        return 0;
    }
    std::string text;
    zb::secs2::appendSmlData(text, items, 0);
    demand(!zb::secs2::readSmlData(text, again) && again == items, "what is written reads as the same items");
    return 0;
}
