#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zb {

/// What a pattern may put in: the parts of one message or item.
struct NameParts {
    std::string name;
    std::string stream;   ///< of a message
    std::string function; ///< of a message
    std::string type;     ///< of an item
};

/// The name that a pattern makes, such as "S{stream}F{function}" or "EQ_{name}". {name}, {upper} and {lower}
/// are the old name as it is and in upper and lower case; {stream}, {function} and {type} the other parts.
/// None when the pattern has a brace without its partner or another word in braces.
std::optional<std::string> nameByPattern(std::string_view pattern, const NameParts& parts);

} // namespace zb
