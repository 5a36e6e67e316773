#pragma once

#include "messages/message_record.h"
#include "messages/smd/smd_text_parser.h"
#include "platform/progress.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The text of an .mdf file; docs/formats.md describes its grammar.
std::string composeMdf(const std::vector<const SECSMessageRecord*>& records);

/// The messages of an .mdf text, CR LF or LF. Violations of the grammar are reported as findings; a message
/// whose head cannot be read is left out, and reading continues with the next one.
std::vector<SECSMessageRecord> parseMdf(std::string_view text, Findings& findings,
                                        const Progress& progress = {});

} // namespace zb
