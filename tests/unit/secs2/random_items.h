#pragma once

#include "messages/secs2/items.h"

#include <random>

namespace zb::test {

/// A message with any formats, lengths and values, nested a few levels deep.
secs2::Items randomItems(std::mt19937& random);

} // namespace zb::test
