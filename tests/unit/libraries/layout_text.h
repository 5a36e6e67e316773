#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zb::test {

/// The lines of a file of names in the data folder of these tests.
std::vector<std::string> readNames(const std::string& file);

/// The layout with each repeated item numbered from its second occurrence on: "L[A, A]" gives "L[A, A2]".
std::string numberRepeatedItems(std::string_view layout);

} // namespace zb::test
