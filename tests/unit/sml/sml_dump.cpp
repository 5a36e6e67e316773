#include "unit/sml/sml_dump.h"

#include "platform/code_page.h"
#include "platform/text.h"

namespace zb::test {

std::string dump(const std::vector<SmlMessage>& messages) {
    std::string text;
    for (const SmlMessage& message : messages) {
        text +=
            message.name + ": S" + std::to_string(message.stream) + " F" + std::to_string(message.function);
        text += message.wait ? " W" : "";
        text += message.autoReply ? " <R>" : "";
        text += message.noLogging ? " <NL>" : "";
        text += " " + message.direction;
        text += message.description.empty() ? "\n" : " | " + message.description + "\n";
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
