#pragma once

#include <string_view>

namespace zb {

/// Whether a name, in upper case, is a word that the generated source cannot use for a message or an item.
bool checkReservedWord(std::string_view upperName);

} // namespace zb
