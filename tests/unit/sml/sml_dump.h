#pragma once

#include "messages/sml/sml.h"

#include <string>
#include <string_view>

namespace zb::test {

// The result of reading, line by line: for each message its head as a node Text, its description after " | ",
// its items; then the findings as "warning 3:5 text".
std::string readDump(std::string_view sml, int codePage = 1252);

// The same without the findings.
std::string dump(const std::vector<SmlMessage>& messages);
std::string dump(const Findings& findings);

} // namespace zb::test
