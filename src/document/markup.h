#pragma once

#include <string>
#include <string_view>

namespace zb {

/// A text for the content or an attribute of an element: what could be markup becomes an entity, and what
/// steers a display is replaced.
std::string markupText(std::string_view text);
/// A text for a cell of a Markdown table, on one line.
std::string markdownText(std::string_view text);

/// "#m3", the place of a message in the document.
std::string messageAnchor(std::size_t message);

} // namespace zb
