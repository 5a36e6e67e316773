#pragma once

#include <span>
#include <string>
#include <string_view>

namespace zb {

/// A library that the programs contain or load.
struct LinkedLibrary {
    std::string_view name;
    std::string_view licence; ///< its short name among the SPDX identifiers
    std::string_view package; ///< the Debian package that the build takes it from
};

/// Every library that packages.txt installs, and the one of the compiler.
std::span<const LinkedLibrary> linkedLibraries();

/// That the program itself has no licence yet, and below it one line for each library with its licence. Lines
/// are separated by LF.
std::string licenceNotice();

} // namespace zb
