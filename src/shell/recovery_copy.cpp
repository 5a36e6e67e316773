#include "platform/file_replacer.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "shell/application.h"
#include "shell/project_lifecycle.h"

#include <cerrno>
#include <filesystem>

namespace zb {

namespace fs = std::filesystem;

namespace {

// A name that nothing has yet: an earlier copy may be all that is left of another day.
fs::path freePath(const fs::path& folder, const std::string& name) {
    std::error_code ignored;
    fs::path path = folder / (name + ".zbp");
    for (int number = 2; fs::exists(fs::symlink_status(path, ignored)); ++number)
        path = folder / (name + "_" + std::to_string(number) + ".zbp");
    return path;
}

} // namespace

Result<std::string> ProjectLifecycle::keepRecoveryCopy() {
    if (app_.folders().state.empty())
        return systemError(ENOENT);
    const fs::path folder = fs::path(app_.folders().state) / "recovery";
    std::error_code error;
    fs::create_directories(folder, error);
    if (!error)
        fs::permissions(folder, fs::perms::owner_all, error);
    if (error)
        return systemError(error.value());
    const fs::path path = freePath(folder, app_.ProjectName);
    if (const Result<void> kept = replacePrivateFile(app_.files, path, encodeUtf16(projectText())); !kept)
        return kept.error();
    return path.string();
}

void ProjectLifecycle::reportOutOfMemory() {
    std::string text = "There is not enough memory for this command.";
    if (!isBlank(app_.ProjectName)) {
        const Result<std::string> copy = keepRecoveryCopy();
        text += copy ? "\r\nThe project, as it is now, has been kept in " + *copy
                     : "\r\nThe project could not be kept: " + copy.error().description;
    }
    app_.desktop.showBox({text, {}, BoxIcon::Critical, BoxButtons::OK});
}

} // namespace zb
