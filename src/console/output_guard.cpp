#include "console/output_guard.h"

#include "console/message_source.h"
#include "platform/printable.h"
#include "platform/text_file.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace zb {

OutputGuard::OutputGuard(std::string path) : path_(std::move(path)), before_(readBytes(path_)) {}

bool OutputGuard::isUnchanged() const {
    const Result<std::string> now = readBytes(path_);
    if (now && before_)
        return *now == *before_;
    return !now && !before_ && now.error() == before_.error();
}

FolderGuard::FolderGuard(const std::filesystem::path& folder, std::string_view ending) : folder_(folder) {
    std::error_code error;
    auto entries = std::filesystem::directory_iterator(folder_, error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        std::string name = entries->path().filename().string();
        if (name.ends_with(ending))
            files_.emplace(std::move(name), entries->path().string());
    }
}

bool FolderGuard::isUnchanged(const std::string& name) const {
    if (const auto known = files_.find(name); known != files_.end())
        return known->second.isUnchanged();
    std::error_code ignored;
    return !std::filesystem::exists(std::filesystem::symlink_status(folder_ / name, ignored));
}

std::string outputMisuse(const std::string& out, const std::vector<std::string>& inputs) {
    if (sourceKind(out) == SourceKind::Project)
        return printable(out) + " is a project";
    std::error_code ignored;
    const bool isRead = std::any_of(inputs.begin(), inputs.end(), [&](const std::string& input) {
        return std::filesystem::equivalent(out, input, ignored);
    });
    return isRead ? printable(out) + " is what is read" : std::string();
}

} // namespace zb
