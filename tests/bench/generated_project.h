#pragma once

#include <cstddef>
#include <string>

namespace zb::bench {

/// The text of a project of so many messages, each with the mix of items that equipment manuals have: 22
/// items in three levels, which makes 25 nodes a message.
std::string projectText(std::size_t messages);

/// The name of message `number`, from 1.
std::string messageName(std::size_t number);

/// The highest memory use of this process so far, in bytes.
std::size_t peakMemory();
/// What is allocated now, in bytes.
std::size_t allocatedMemory();

} // namespace zb::bench
