#pragma once

#include <filesystem>

namespace zb {

/// The folder of the running program's file; empty when the system does not tell.
std::filesystem::path programFolder();

} // namespace zb
