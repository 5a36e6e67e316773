#include "demand.h"

#include "lint/rule.h"
#include "lint/silencings.h"
#include "platform/text_file.h"

using zb::fuzz::demand;

namespace {

zb::Finding findingAt(const zb::Silencing& silencing, std::string_view rule) {
    const bool isMessage = silencing.item == zb::kMessageItself;
    return {zb::Severity::Warning,
            zb::FindingPlace::inMessage(silencing.message, isMessage ? "" : silencing.item), "text",
            std::string(rule)};
}

} // namespace

/// Any text is read as silencings: its lines stay, and each silencing holds where it says, also when it is
/// added anew.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string input = zb::decodeText(zb::fuzz::asText(data, size), zb::CodePage(1252));
    zb::Silencings silencings = zb::Silencings::parse(input);
    const std::string text = silencings.text();
    demand(zb::Silencings::parse(text).text() == text, "what was written reads back as it was");
    const std::vector<zb::Silencing> all = silencings.all();
    for (const zb::Silencing& silencing : all) {
        zb::Silencings alone;
        alone.add(silencing);
        demand(zb::Silencings::parse(alone.text()).all() == std::vector{silencing},
               "a silencing reads back the same");
        for (const zb::Rule& rule : zb::allRules()) {
            const bool expected = zb::selects(silencing.selector, rule);
            demand(alone.silences(findingAt(silencing, rule.id)) == expected,
                   "it silences what its selector names");
            demand(!expected || silencings.silences(findingAt(silencing, rule.id)), "and so do all together");
        }
        silencings.add(silencing);
    }
    demand(silencings.text() == text, "what is there is not added again");
    for (const zb::Silencing& silencing : all)
        silencings.remove(silencing);
    demand(silencings.all().empty(), "all can be removed");
    return 0;
}
