#include "script/work_folder.h"

#include "platform/temporary_folder.h"

#include <system_error>

namespace zb {

namespace fs = std::filesystem;

// Without links in it: the program would show another path than the script names.
WorkFolder::WorkFolder() : path_(makeTemporaryFolder("zbc-")) {}

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
