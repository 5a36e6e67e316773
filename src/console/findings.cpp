#include "console/findings.h"

#include "console/printable.h"

#include <nlohmann/json.hpp>
#include <ostream>

namespace zb {

void printFindings(std::ostream& stream, const std::string& file, const Findings& findings) {
    for (const Finding& finding : findings) {
        stream << printable(file) << ": " << printable(finding.place.message) << ": ";
        if (!finding.place.item.empty())
            stream << printable(finding.place.item) << ": ";
        if (finding.severity == Severity::Warning)
            stream << "warning: ";
        stream << printable(finding.text) << '\n';
    }
}

void printFindingsAsJson(std::ostream& stream, const std::string& file, const Findings& findings) {
    for (const Finding& finding : findings) {
        const bool warning = finding.severity == Severity::Warning;
        const nlohmann::ordered_json line{{"file", file},
                                          {"message", finding.place.message},
                                          {"item", finding.place.item},
                                          {"severity", warning ? "warning" : "error"},
                                          {"text", finding.text}};
        stream << printableJson(line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)) << '\n';
    }
}

Findings errorsOf(Findings findings) {
    std::erase_if(findings, [](const Finding& finding) { return finding.severity != Severity::Error; });
    return findings;
}

} // namespace zb
