#pragma once

#include "messages/message_record.h"

#include <string>
#include <vector>

namespace zb {

/// The messages as SML that reads back as they are, and that other readers of the language take for the most
/// part; docs/formats-sml.md tells its form. Lines end in CR LF.
std::string composeSml(const std::vector<const SECSMessageRecord*>& records);

} // namespace zb
