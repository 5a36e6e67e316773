#pragma once

#include "platform/result.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// Notices that another program, one that takes no lock, changes a file between the start of a verb and its
/// write.
class OutputGuard {
public:
    /// The file as it is now; it need not exist.
    explicit OutputGuard(std::string path);
    /// Whether the file still has that content, or is still missing.
    bool isUnchanged() const;

private:
    std::string path_;
    Result<std::string> before_;
};

/// The same for all files of a folder with one ending, of which only the read input says which are written.
class FolderGuard {
public:
    /// The files as they are now; the folder need not exist, and the empty path has none.
    FolderGuard(const std::filesystem::path& folder, std::string_view ending);
    /// Whether the file of that name still has that content, or is still missing.
    bool isUnchanged(const std::string& name) const;

private:
    std::filesystem::path folder_;
    std::map<std::string, OutputGuard> files_;
};

/// Why a verb must not write to this file; empty when it may. Projects are replaced only by the verbs that
/// keep what was there, and no verb writes over what it reads.
std::string outputMisuse(const std::string& out, const std::vector<std::string>& inputs);

} // namespace zb
