#include "script/work_folder.h"

namespace zb {

WorkFolder::WorkFolder() : folder_("zbc-") {}

WorkFolder::~WorkFolder() {
    removeFolder(folder_.path());
}

} // namespace zb
