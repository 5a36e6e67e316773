#pragma once

#include <cstddef>
#include <string>

namespace zb::bench {

/// The text of a project with the given number of messages, each with the mix of items in equipment manuals:
/// 22 items in three levels, which makes 25 nodes per message.
std::string projectText(std::size_t messages);

/// The same project with 100 messages changed, from message `first` on: another value, a new item, another
/// description or no message at all. It has at least 100 messages.
std::string changedText(std::size_t messages, std::size_t first);

/// The name of message `number`, from 1.
std::string messageName(std::size_t number);

/// The peak memory use of this process so far, in bytes.
std::size_t peakMemory();
/// The memory allocated now, in bytes.
std::size_t allocatedMemory();

} // namespace zb::bench
