#include "platform/temporary_folder.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace zb {

namespace fs = std::filesystem;

fs::path makeTemporaryFolder(const std::string& prefix) {
    std::string pattern = (fs::canonical(fs::temp_directory_path()) / (prefix + "XXXXXX")).string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw fs::filesystem_error("no folder to work in", pattern,
                                   std::error_code(errno, std::generic_category()));
    return pattern;
}

} // namespace zb
