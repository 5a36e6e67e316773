#pragma once

#include <cstddef>
#include <string>

namespace zb::bench {

/// The text of the model sections of a project with so many received transaction messages of 4 items each.
/// They share so many SECS messages, the first ones of the project.
std::string modelText(std::size_t messages, std::size_t secsMessages = 100);

} // namespace zb::bench
