#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zb::test {

/// The locations of the sample projects and the golden texts.
std::filesystem::path sourceFolder();

/// Compares byte for byte with a file below tests/golden. On a difference it fails and names the first
/// different line; the actual text is stored next to the test program as golden-actual/NAME. With
/// ZB_ACCEPT_GOLDEN=1 in the environment the golden file is rewritten instead, and the test fails, so that a
/// person looks at the difference.
void expectGolden(std::string_view actual, const std::string& name);

} // namespace zb::test
