#include "shell/file_error_box.h"

#include "controls/desktop.h"
#include "platform/file_access.h"

#include <filesystem>

namespace zb {

void showFileError(Desktop& desktop, const std::string& path, const FileError& error) {
    const std::string name = std::filesystem::path(path).filename().string();
    desktop.showBox({describeFileFault(error), std::string(kApplicationTitle) + " - " + name,
                     BoxIcon::Critical, BoxButtons::OK});
}

} // namespace zb
