#pragma once

#include "messages/definition_check.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace zb {

/// One line a finding: `FILE: MESSAGE: item path: text`, the path left out for the message itself, and
/// "warning: " before the text of what is no fault.
void printFindings(std::ostream& stream, const std::string& file,
                   const std::vector<DefinitionFinding>& findings);
/// One JSON object a line.
void printFindingsAsJson(std::ostream& stream, const std::string& file,
                         const std::vector<DefinitionFinding>& findings);
/// How many of them stop a build.
std::size_t countErrors(const std::vector<DefinitionFinding>& findings);

} // namespace zb
