#include "console/findings.h"

#include "console/printable.h"

#include <nlohmann/json.hpp>
#include <ostream>

namespace zb {

void printFindings(std::ostream& stream, const std::string& file,
                   const std::vector<DefinitionFinding>& findings) {
    for (const DefinitionFinding& finding : findings) {
        stream << printable(file) << ": " << printable(finding.message) << ": ";
        if (!finding.itemPath.empty())
            stream << printable(finding.itemPath) << ": ";
        if (finding.severity == DefinitionFinding::Severity::Warning)
            stream << "warning: ";
        stream << printable(finding.text) << '\n';
    }
}

void printFindingsAsJson(std::ostream& stream, const std::string& file,
                         const std::vector<DefinitionFinding>& findings) {
    for (const DefinitionFinding& finding : findings) {
        const bool warning = finding.severity == DefinitionFinding::Severity::Warning;
        const nlohmann::ordered_json line{{"file", file},
                                          {"message", finding.message},
                                          {"item", finding.itemPath},
                                          {"severity", warning ? "warning" : "error"},
                                          {"text", finding.text}};
        stream << printableJson(line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)) << '\n';
    }
}

std::vector<DefinitionFinding> errorsOf(std::vector<DefinitionFinding> findings) {
    std::erase_if(findings, [](const DefinitionFinding& finding) {
        return finding.severity != DefinitionFinding::Severity::Error;
    });
    return findings;
}

} // namespace zb
