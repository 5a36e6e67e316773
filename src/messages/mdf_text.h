#pragma once

#include "messages/message_record.h"
#include "messages/smd/smd_text_parser.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The text of an .mdf file; docs/formats.md tells its grammar.
std::string composeMdf(const std::vector<const SECSMessageRecord*>& records);

/// The messages of an .mdf text, CR LF or LF. What breaks the grammar is told in the findings; a message
/// whose head cannot be read is left out, and reading goes on with the next one.
std::vector<SECSMessageRecord> parseMdf(std::string_view text, Findings& findings);

} // namespace zb
