#pragma once

#include "messages/message_record.h"

#include <string>
#include <vector>

namespace zb {

/// The messages as SML that this program reads back unchanged, and that most other readers accept;
/// docs/formats-sml.md describes its form. Lines end in CR LF.
std::string composeSml(const std::vector<const SECSMessageRecord*>& records);

} // namespace zb
