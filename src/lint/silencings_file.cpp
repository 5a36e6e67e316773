#include "lint/silencings_file.h"

#include "platform/code_page.h"
#include "platform/file_replacer.h"
#include "platform/text_file.h"

#include <filesystem>

namespace zb {

Result<Silencings> readSilencings(const std::string& projectPath) {
    const std::string path = silencingsPath(projectPath);
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        return Silencings();
    const Result<std::string> bytes = readBytes(path);
    if (!bytes)
        return bytes.error();
    return Silencings::parse(decodeText(*bytes, CodePage(1252)));
}

Result<Silencings> changeSilencings(FileLayer& files, const std::string& projectPath,
                                    const std::function<void(Silencings&)>& change) {
    const Result<Silencings> read = readSilencings(projectPath);
    if (!read)
        return read.error();
    Silencings silencings = *read;
    change(silencings);
    if (silencings.text() == read->text())
        return silencings;
    const Result<void> written = replaceFile(files, silencingsPath(projectPath), silencings.text());
    if (!written)
        return written.error();
    return silencings;
}

} // namespace zb
