#include "desktop/start/example_project.h"

#include "platform/file_replacer.h"

#include <QFile>

#include <cerrno>
#include <string>
#include <system_error>

// Resources of a static library must be initialised explicitly, outside of any namespace.
static void loadExample() {
    Q_INIT_RESOURCE(example);
}

namespace zb {

namespace {

constexpr int kMostCopies = 1000;

/// Creating the folder is also the test whether it exists: no other process can interfere.
Result<std::filesystem::path> makeFreeFolder(const std::filesystem::path& parent) {
    for (int number = 1; number <= kMostCopies; ++number) {
        std::filesystem::path folder =
            parent / (number == 1 ? std::string("Etcher") : "Etcher-" + std::to_string(number));
        std::error_code error;
        if (std::filesystem::create_directory(folder, error))
            return folder;
        if (error)
            return systemError(error.value());
    }
    return systemError(EEXIST);
}

} // namespace

Result<std::filesystem::path> copyExample(const std::filesystem::path& folder) {
    loadExample();
    QFile example(QStringLiteral(":/example/Etcher.zbp"));
    if (!example.open(QIODevice::ReadOnly))
        return systemError(ENOENT);
    const auto made = makeFreeFolder(folder);
    if (!made)
        return made.error();
    std::filesystem::path copy = *made / "Etcher.zbp";
    if (const Result<void> written = replaceFile(copy, example.readAll().toStdString()); !written) {
        std::error_code ignored;
        std::filesystem::remove(*made, ignored);
        return written.error();
    }
    return copy;
}

} // namespace zb
