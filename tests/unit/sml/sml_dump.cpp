#include "unit/sml/sml_dump.h"

#include "platform/code_page.h"
#include "platform/text.h"

namespace zb::test {

std::string dump(const std::vector<SmlMessage>& messages) {
    std::string text;
    for (const SmlMessage& message : messages) {
        text.append(message.name).append(": S").append(std::to_string(message.stream));
        text.append(" F").append(std::to_string(message.function));
        text += message.wait ? " W" : "";
        text += message.autoReply ? " <R>" : "";
        text += message.noLogging ? " <NL>" : "";
        text.append(" ").append(message.direction);
        text.append(message.description.empty() ? "" : " | ").append(message.description).append("\n");
        text += replaceAll(message.body, "\r\n", "\n");
    }
    return text;
}

std::string dump(const Findings& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        text += finding.severity == Severity::Error     ? "error "
                : finding.severity == Severity::Warning ? "warning "
                                                        : "note ";
        text += std::to_string(finding.place.line) + ":" + std::to_string(finding.place.column) + " " +
                finding.text + "\n";
    }
    return text;
}

std::string readDump(std::string_view sml, int codePage) {
    const SmlLibrary library = readSml(sml, CodePage(codePage));
    return dump(library.messages) + dump(library.findings);
}

} // namespace zb::test
