#include "demand.h"

#include "messages/definition_rules.h"
#include "messages/item_normalizer.h"
#include "platform/code_page.h"

using zb::fuzz::demand;

/// Any Text is accepted; a well-formed one is unchanged after it is composed of canonical words.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view text = zb::fuzz::asText(data, size);
    zb::SECSItemRecord record;
    const std::string status = record.parseText(text);
    const std::string composed = zb::composeItemText(record);
    if (status.empty()) {
        zb::SECSItemRecord again;
        demand(again.parseText(composed).empty(), "a composed Text is well-formed");
        demand(zb::composeItemText(again) == composed, "composing undoes parsing");
    }
    const zb::CodePage codePage(size % 2 == 0 ? 949 : 1252);
    if (record.getCount() < 10000) {
        if (const auto normalized = zb::normalizedItemText(record, codePage); normalized && status.empty()) {
            zb::SECSItemRecord canonical;
            canonical.parseText(*normalized);
            demand(zb::normalizedItemText(canonical, codePage) == normalized, "a normalized Text stays");
        }
    }
    zb::valueFaults(text, static_cast<int>(size % 4));
    zb::normalizeItemText(text);
    return 0;
}
