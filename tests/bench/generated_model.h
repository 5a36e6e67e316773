#pragma once

#include <cstddef>
#include <string>

namespace zb::bench {

/// The text of the model sections of a project with so many received transaction messages of 4 items each.
std::string modelText(std::size_t messages);

} // namespace zb::bench
