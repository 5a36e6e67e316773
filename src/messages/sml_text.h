#pragma once

#include "messages/message_record.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The messages as SML that this program reads back unchanged, and that most other readers accept;
/// docs/formats-sml.md describes its form. Lines end in CR LF.
std::string composeSml(const std::vector<const SECSMessageRecord*>& records);

/// The text between the quotes that it does not contain; a text with both kinds becomes several strings.
std::string quotedSmlText(std::string_view text);

} // namespace zb
