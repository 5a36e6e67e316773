#pragma once

#include <string>

namespace zb {

struct InterfaceFacts;

/// One self-contained HTML file, which is also well-formed XML: for the screen in light and dark, for a phone
/// and for print. Same facts, same bytes.
std::string interfaceHtml(const InterfaceFacts& facts);

/// The same as Markdown with tables.
std::string interfaceMarkdown(const InterfaceFacts& facts);

} // namespace zb
