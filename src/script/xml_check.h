#pragma once

#include <string>
#include <string_view>

namespace zb {

/// What keeps a document, of which a lenient reader made a tree, from being well-formed XML: a stray `&` or
/// `<`, text beside the root, an attribute given twice, a character that XML lacks. Empty when nothing does.
std::string findXmlFault(std::string_view bytes);

} // namespace zb
