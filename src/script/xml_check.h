#pragma once

#include <string>
#include <string_view>

namespace zb {

/// Why a document that a lenient reader has accepted is not well-formed XML: a stray `&` or `<`, text beside
/// the root, a duplicate attribute, a character that XML does not allow. Empty when it is.
std::string findXmlFault(std::string_view bytes);

} // namespace zb
