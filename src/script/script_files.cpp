#include "script/script_files.h"

#include "platform/file_layer.h"
#include "platform/file_replacer.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "script/script_failure.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace zb {

namespace {

constexpr std::string_view kMarkLittleEndian("\xFF\xFE", 2);
constexpr std::string_view kMarkBigEndian("\xFE\xFF", 2);

std::string withBytesSwapped(std::string text) {
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
        std::swap(text[i], text[i + 1]);
    return text;
}

} // namespace

std::string readFileBytes(const std::string& path) {
    auto bytes = readBytes(path);
    if (!bytes)
        throw ScriptFailure("a readable file " + path, bytes.error().description);
    return std::move(bytes).value();
}

std::string readFileText(const std::string& path, const CodePage& codePage) {
    return decodeText(readFileBytes(path), codePage);
}

void writeFileBytes(const std::string& path, std::string_view bytes) {
    std::error_code error;
    const auto folder = std::filesystem::path(path).parent_path();
    if (!folder.empty())
        std::filesystem::create_directories(folder, error);
    if (error)
        throw ScriptFailure("a folder " + folder.string(), error.message());
    if (const auto done = replaceFile(path, bytes); !done)
        throw ScriptFailure("a writable file " + path, done.error().description);
}

std::size_t unitLike(std::string_view bytes) {
    return bytes.starts_with(kMarkLittleEndian) || bytes.starts_with(kMarkBigEndian) ? 2 : 1;
}

std::string encodeLike(std::string_view bytes, std::string_view text, const CodePage& codePage) {
    if (unitLike(bytes) == 2) {
        std::string encoded = encodeUtf16(text).substr(kMarkLittleEndian.size());
        return bytes.starts_with(kMarkBigEndian) ? withBytesSwapped(std::move(encoded)) : encoded;
    }
    return isValidUtf8(bytes) ? std::string(text) : codePage.fromUtf8(text);
}

} // namespace zb
