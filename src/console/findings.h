#pragma once

#include "platform/finding.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace zb {

/// One line per finding: `FILE: MESSAGE: item path: text`. The path is left out for the message itself;
/// "warning: " precedes the text of a finding that is not a fault.
void printFindings(std::ostream& stream, const std::string& file, const Findings& findings);
/// One JSON object per line.
void printFindingsAsJson(std::ostream& stream, const std::string& file, const Findings& findings);
/// The findings that stop a build.
Findings errorsOf(Findings findings);

} // namespace zb
