#pragma once

#include "messages/item_record.h"

#include <optional>
#include <string>

namespace zb {

class CodePage;

/// What is wrong with a number of the item that its type cannot hold; nothing when all fit.
std::optional<std::string> rangeFault(const SECSItemRecord& item);
/// What is wrong with more values, or a longer text, than the item holds; nothing when all fit. A build cuts
/// off the rest.
std::optional<std::string> lengthFault(const SECSItemRecord& item, const CodePage& codePage);

} // namespace zb
