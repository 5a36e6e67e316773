#include "console/project_loading.h"

#include "platform/locale.h"
#include "platform/printable.h"
#include "platform/setting_names.h"
#include "platform/settings.h"
#include "platform/user_folders.h"

#include <ostream>

namespace zb {

std::optional<ProjectFile> loadProject(const std::string& path, ConsoleStreams streams, int& status) {
    Result<ProjectFile> file = readProjectFile(path);
    if (!file) {
        streams.err << printable(path) << ": cannot be read: " << printable(file.error().description) << '\n';
        status = kExitFileFault;
        return std::nullopt;
    }
    if (!file->fault.empty()) {
        streams.err << printable(path) << ": not a project file: " << printable(file->fault) << '\n';
        status = kExitFault;
        return std::nullopt;
    }
    status = kExitDone;
    return std::move(file).value();
}

void reportUnkeptVersion(std::ostream& err, const std::string& project, const FileError& error) {
    err << printable(project) << ": the previous version could not be kept: " << printable(error.description)
        << '\n';
}

CodePage codePageOfUser() {
    const SettingsStore settings(settingsFolder());
    return chooseCodePage(settings.readRegValue(kSettingsKey, kAnsiCodePage), localeName());
}

} // namespace zb
