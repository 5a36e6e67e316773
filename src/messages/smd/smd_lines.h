#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace zb {

/// The lines of a project's section of messages, from 1, that the nodes come from: the first is that of the
/// node with the flat Index 1 after readSmdSection. The nodes before a message have the line of its head.
std::vector<std::size_t> linesOfNodes(std::string_view sectionText);

} // namespace zb
