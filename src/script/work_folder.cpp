#include "script/work_folder.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace zb {

namespace fs = std::filesystem;

WorkFolder::WorkFolder() {
    // Links are resolved at once: the program would show another path than the script names.
    std::string pattern = (fs::canonical(fs::temp_directory_path()) / "zbc-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        throw fs::filesystem_error("no folder to work in", pattern,
                                   std::error_code(errno, std::generic_category()));
    path_ = pattern;
}

WorkFolder::~WorkFolder() {
    std::error_code ignored;
    // A script may have taken rights away; a folder that cannot be read could not be removed.
    for (auto entry =
             fs::recursive_directory_iterator(path_, fs::directory_options::skip_permission_denied, ignored);
         !ignored && entry != fs::end(entry); entry.increment(ignored)) {
        if (entry->is_directory(ignored) && !entry->is_symlink(ignored))
            fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    fs::remove_all(path_, ignored);
}

} // namespace zb
