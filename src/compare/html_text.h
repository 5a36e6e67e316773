#pragma once

#include <string>
#include <string_view>

namespace zb {

/// A text of a file within a page of HTML: control characters are visible, and nothing in it is markup.
std::string htmlText(std::string_view text);

} // namespace zb
