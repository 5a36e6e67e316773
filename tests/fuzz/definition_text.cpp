#include "demand.h"

#include "messages/mdf_text.h"
#include "messages/smd/smd_text_parser.h"

using zb::fuzz::demand;

namespace {

void readSmd(std::string_view text) {
    zb::Findings findings;
    zb::SmdTextSplitter splitter(text, &findings);
    while (const auto message = splitter.next()) {
        zb::SmdBodyReader body(message->body, message->bodyLine, &findings);
        zb::SmdItemText item;
        while (body.next(item))
            demand(item.level >= 1, "levels begin at 1");
    }
    zb::SECSMessageRecord record;
    record.parseSmd(text, zb::kFormatSmd);
    record.getItems();
}

void readMdf(std::string_view text) {
    zb::Findings findings;
    const std::vector<zb::SECSMessageRecord> records = zb::parseMdf(text, findings);
    std::vector<const zb::SECSMessageRecord*> all;
    for (const zb::SECSMessageRecord& record : records)
        all.push_back(&record);
    const std::string composed = zb::composeMdf(all);
    zb::Findings findingsAgain;
    demand(zb::parseMdf(composed, findingsAgain).size() == records.size(), "what is written is read back");
}

} // namespace

/// Any text is read as SMD and as MDF.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    readSmd(zb::fuzz::asText(data, size));
    readMdf(zb::fuzz::asText(data, size));
    return 0;
}
