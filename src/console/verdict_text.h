#pragma once

#include "rehearsal/rehearsal.h"

#include <string>

namespace zb {

/// A verdict as one JSON object on one line, without a line end.
std::string verdictJson(const rehearsal::Verdict& verdict);
/// A verdict as a line of a table, followed by a line for each finding; each ends in LF.
std::string verdictLines(const rehearsal::Verdict& verdict);

} // namespace zb
