#include "platform/text_file.h"

#include <utility>

#include "platform/text.h"
#include "platform/utf16.h"

namespace zb {

namespace {

constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

} // namespace

std::string decodeText(std::string_view bytes, const CodePage& codePage, DecodeAs decodeAs) {
    if (decodeAs == DecodeAs::CodePage)
        return codePage.toUtf8(bytes);
    if (bytes.starts_with(kLittleEndianMark))
        return decodeUtf16(bytes.substr(kLittleEndianMark.size()), ByteOrder::LittleEndian).text;
    if (bytes.starts_with(kBigEndianMark))
        return decodeUtf16(bytes.substr(kBigEndianMark.size()), ByteOrder::BigEndian).text;
    if (bytes.starts_with(kUtf8Mark))
        return sanitizeUtf8(bytes.substr(kUtf8Mark.size()));
    return isValidUtf8(bytes) ? std::string(bytes) : codePage.toUtf8(bytes);
}

std::string decodeText(std::string&& bytes, const CodePage& codePage) {
    const bool marked = bytes.starts_with(kLittleEndianMark) || bytes.starts_with(kBigEndianMark) ||
                        bytes.starts_with(kUtf8Mark);
    if (!marked && isValidUtf8(bytes))
        return std::move(bytes);
    return decodeText(std::string_view(bytes), codePage);
}

namespace {

bool isTextUnit(char16_t unit) {
    const bool control = unit < 0x20 && unit != u'\t' && unit != u'\n' && unit != u'\r';
    const bool noCharacter = unit >= 0xFFFE || (unit >= 0xFDD0 && unit <= 0xFDEF);
    return !control && !noCharacter;
}

// Whether bytes without a mark are text in this order: no invalid unit, and, since the keywords of a project
// are ASCII, at least half of it ASCII. A single surrogate does not decide: one damaged character leaves the
// rest readable.
bool readsAsUtf16(std::string_view bytes, ByteOrder order) {
    constexpr std::size_t kLeastAsciiShare = 2;
    std::size_t ascii = 0;
    const std::size_t units = bytes.size() / 2;
    for (std::size_t i = 0; i < units; ++i) {
        const char16_t unit = unitAt(bytes, 2 * i, order);
        if (!isTextUnit(unit))
            return false;
        ascii += unit < 0x80 ? 1 : 0;
    }
    return units > 0 && ascii * kLeastAsciiShare >= units;
}

ProjectText projectOfUtf16(std::string_view bytes, ByteOrder order, bool marked) {
    DecodedUtf16 decoded = decodeUtf16(bytes, order);
    ProjectText project;
    project.text = std::move(decoded.text);
    project.encoding = order == ByteOrder::LittleEndian ? ProjectEncoding::Utf16LittleEndian
                                                        : ProjectEncoding::Utf16BigEndian;
    project.marked = marked;
    project.replacements = decoded.replacements;
    if (decoded.endsInCharacter)
        project.fault = "the file ends in the middle of a character";
    else if (project.text.empty())
        project.fault = "the file is empty";
    return project;
}

ProjectText projectOfUtf8(std::string_view bytes, bool marked) {
    return {sanitizeUtf8(bytes), ProjectEncoding::Utf8, marked, 0,
            "the file is UTF-8 text, and a project file is UTF-16 text"};
}

ProjectText unmarkedProject(std::string_view bytes) {
    const bool hasNul = bytes.find('\0') != std::string_view::npos;
    if (!hasNul && isValidUtf8(bytes))
        return projectOfUtf8(bytes, false);
    for (const ByteOrder order : {ByteOrder::LittleEndian, ByteOrder::BigEndian}) {
        if (readsAsUtf16(bytes, order))
            return projectOfUtf16(bytes, order, false);
    }
    ProjectText project = projectOfUtf16(bytes, ByteOrder::LittleEndian, false);
    project.encoding = ProjectEncoding::Unknown;
    project.fault = "the file is no UTF-16 text";
    return project;
}

} // namespace

ProjectText decodeProject(std::string_view bytes) {
    if (bytes.empty())
        return {{}, ProjectEncoding::Unknown, false, 0, "the file is empty"};
    if (bytes.starts_with(kLittleEndianMark))
        return projectOfUtf16(bytes.substr(kLittleEndianMark.size()), ByteOrder::LittleEndian, true);
    if (bytes.starts_with(kBigEndianMark))
        return projectOfUtf16(bytes.substr(kBigEndianMark.size()), ByteOrder::BigEndian, true);
    if (bytes.starts_with(kUtf8Mark))
        return projectOfUtf8(bytes.substr(kUtf8Mark.size()), true);
    return unmarkedProject(bytes);
}

std::optional<std::string_view> LineReader::next() {
    if (rest_.empty())
        return std::nullopt;
    const std::size_t end = rest_.find('\n');
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    ++lineNumber_;
    return line;
}

} // namespace zb
