#include "shell/linked_libraries.h"

#include <array>

namespace zb {

namespace {

constexpr std::array kLinkedLibraries{
    LinkedLibrary{"Qt 6", "LGPL-3.0-only", "qt6-base-dev"},
    LinkedLibrary{"Qt 6 SVG", "LGPL-3.0-only", "qt6-svg-dev"},
    LinkedLibrary{"ICU", "Unicode-DFS-2016", "libicu-dev"},
    LinkedLibrary{"pugixml", "MIT", "libpugixml-dev"},
    LinkedLibrary{"JSON for Modern C++", "MIT", "nlohmann-json3-dev"},
    LinkedLibrary{"CLI11", "BSD-3-Clause", "libcli11-dev"},
    LinkedLibrary{"libacl", "LGPL-2.1-or-later", "libacl1-dev"},
    LinkedLibrary{"libattr", "LGPL-2.1-or-later", "libattr1-dev"},
    LinkedLibrary{"libtins", "BSD-2-Clause", "libtins-dev"},
    LinkedLibrary{"libpcap", "BSD-3-Clause", "libpcap-dev"},
    LinkedLibrary{"GNU C++ Library", "GPL-3.0-or-later WITH GCC-exception-3.1", "g++"},
};

} // namespace

std::span<const LinkedLibrary> linkedLibraries() {
    return kLinkedLibraries;
}

std::string licenceNotice() {
    std::string notice = "No licence has been granted for this program yet. It uses:";
    for (const LinkedLibrary& library : kLinkedLibraries)
        notice += "\n    " + std::string(library.name) + ": " + std::string(library.licence);
    return notice;
}

} // namespace zb
