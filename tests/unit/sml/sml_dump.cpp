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

std::string dump(const std::vector<SmlFinding>& findings) {
    std::string text;
    for (const SmlFinding& finding : findings) {
        text += finding.severity == SmlSeverity::error     ? "error "
                : finding.severity == SmlSeverity::warning ? "warning "
                                                           : "note ";
        text +=
            std::to_string(finding.line) + ":" + std::to_string(finding.column) + " " + finding.text + "\n";
    }
    return text;
}

std::string readDump(std::string_view sml, int codePage) {
    const SmlLibrary library = readSml(sml, CodePage(codePage));
    return dump(library.messages) + dump(library.findings);
}

} // namespace zb::test
