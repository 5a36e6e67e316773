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
/// One JSON object per line, with id, category, line and column as well.
void printFindingsInDetail(std::ostream& stream, const std::string& file, const Findings& findings);
/// A log in the format SARIF 2.1.0, on one line.
void printFindingsAsSarif(std::ostream& stream, const std::string& file, const Findings& findings);
/// The findings that stop a build.
Findings errorsOf(Findings findings);

} // namespace zb
