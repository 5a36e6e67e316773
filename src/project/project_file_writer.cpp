#include "project/project_file_writer.h"

#include "platform/file_replacer.h"

#include <system_error>
#include <utility>

namespace zb {

namespace fs = std::filesystem;

namespace {

// By whatever link a project is reached, its writers meet in one folder.
fs::path folderOf(const fs::path& projectFile) {
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(projectFile, error);
    return (error ? projectFile : whole).parent_path();
}

} // namespace

ProjectFileWriter::ProjectFileWriter(FileLayer& files, const fs::path& stateFolder, fs::path projectFile,
                                     std::chrono::milliseconds longestWait)
    : files_(files), history_(files, stateFolder), projectFile_(std::move(projectFile)),
      lock_(folderOf(projectFile_), longestWait) {}

Result<void> ProjectFileWriter::write(std::string_view bytes) {
    kept_ = history_.keep(projectFile_);
    Result<void> written = replaceFile(files_, projectFile_, bytes);
    if (written)
        history_.noteSaved(projectFile_, bytes);
    return written;
}

} // namespace zb
