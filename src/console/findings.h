#pragma once

#include "platform/finding.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace zb {

/// One line a finding: `FILE: MESSAGE: item path: text`, the path left out for the message itself, and
/// "warning: " before the text of what is no fault.
void printFindings(std::ostream& stream, const std::string& file, const Findings& findings);
/// One JSON object a line.
void printFindingsAsJson(std::ostream& stream, const std::string& file, const Findings& findings);
/// Those that stop a build.
Findings errorsOf(Findings findings);

} // namespace zb
