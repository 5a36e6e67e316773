#include "demand.h"

#include "compare/difference_lines.h"
#include "compare/project_comparison.h"
#include "compare/project_merge.h"
#include "platform/text_file.h"
#include "project/project_text.h"

namespace {

/// The next project of the input; they are separated by a NUL.
zb::Project takeProject(std::string_view& bytes) {
    const std::size_t end = bytes.find('\0');
    const std::string_view text = bytes.substr(0, end);
    bytes = end == std::string_view::npos ? std::string_view() : bytes.substr(end + 1);
    return zb::parseProject(zb::decodeText(text, zb::CodePage(1252)));
}

} // namespace

/// Any three projects are compared and merged, and what comes of it reads back as it is written.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    std::string_view bytes = zb::fuzz::asText(data, size);
    const zb::Project base = takeProject(bytes);
    const zb::Project ours = takeProject(bytes);
    const zb::Project theirs = takeProject(bytes);
    zb::differenceBlocks(zb::compareProjects(base, ours));
    zb::fuzz::demand(zb::compareProjects(ours, ours).empty(), "a project is equal to itself");
    const std::string merged = zb::composeProject(zb::mergeProjects(base, ours, theirs).project);
    zb::fuzz::demand(zb::composeProject(zb::parseProject(merged)) == merged,
                     "a merged project comes back as it was");
    zb::fuzz::demand(zb::composeProject(zb::mergeProjects(base, ours, base).project) ==
                         zb::composeProject(zb::parseProject(zb::composeProject(ours))),
                     "the merge with an unchanged side is the other side");
    return 0;
}
