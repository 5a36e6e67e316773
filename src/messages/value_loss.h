#pragma once

#include <string>
#include <string_view>

namespace zb {

/// What the canonical Text of an item does not keep of the values of another one, as a sentence for the user.
/// Empty when it keeps all of them; blanks at the end of a text are nothing.
std::string lostByCount(std::string_view before, std::string_view canonical);

/// What the canonical values of a type do not keep of the typed ones, such as a number that is too large for
/// it.
std::string lostByType(std::string_view type, std::string_view typed, std::string_view canonical);

} // namespace zb
