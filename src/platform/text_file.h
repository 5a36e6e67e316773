#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/result.h"

// Text files: read whole, decoded to UTF-8, walked line by line.
namespace zb {

/// The bytes of a regular file. A missing or unreadable file is an error, and so is whatever is no file (a
/// folder, a pipe, a device): nothing that could keep the program waiting is ever read. A file with more than
/// kLargestReadable bytes is an error (EFBIG) that names its size: a project or a library never comes near
/// it, and reading could exhaust the memory.
inline constexpr std::uintmax_t kLargestReadable = std::uintmax_t{512} << 20U;
Result<std::string> readBytes(const std::filesystem::path& path);

/// How the bytes of a library or definition file are decoded.
enum class DecodeAs {
    Detected, // UTF-16 or UTF-8 by the mark, otherwise UTF-8 when it is valid, otherwise the code page
    CodePage, // the code page in any case
};
/// Damaged sequences become U+FFFD; an odd last byte of UTF-16 is dropped.
std::string decodeText(std::string_view bytes, const CodePage& codePage,
                       DecodeAs decodeAs = DecodeAs::Detected);
/// The same without a copy of text that is already UTF-8.
std::string decodeText(std::string&& bytes, const CodePage& codePage);

enum class ProjectEncoding {
    Utf16LittleEndian,
    Utf16BigEndian,
    Utf8,    // not a project in this form, but its text is complete
    Unknown, // empty, or neither UTF-16 nor UTF-8
};

/// The text of a project file, as far as it can be decoded.
struct ProjectText {
    std::string text;
    ProjectEncoding encoding = ProjectEncoding::Unknown;
    bool marked = false;          // it started with a byte order mark
    std::size_t replacements = 0; // characters that were damaged and became U+FFFD
    /// Why these bytes are not a project file, for the user who named the file; empty for UTF-16 text.
    std::string fault;
};

/// Decodes a project file. UTF-16 is recognised by its mark; without one, by whether it is plain text in
/// either byte order. UTF-8 keeps its text but gets a fault, and so do an empty file, a file that ends in the
/// middle of a character (which is dropped or becomes U+FFFD), and bytes that are not text (read as little
/// endian).
ProjectText decodeProject(std::string_view bytes);

/// UTF-16 little endian with a byte order mark, the encoding of project files. Line ends are not changed.
std::string encodeUtf16(std::string_view utf8);

/// The lines of a text, without their CR LF or LF. An empty text has none, and the end of the last line does
/// not start another one.
class LineReader {
public:
    explicit LineReader(std::string_view text) : rest_(text) {}

    /// The next line, a view into the text; nothing at the end.
    std::optional<std::string_view> next();
    bool atEnd() const { return rest_.empty(); }
    /// The number of the line that `next` returned last, from 1; 0 before the first.
    std::size_t lineNumber() const { return lineNumber_; }

private:
    std::string_view rest_;
    std::size_t lineNumber_ = 0;
};

} // namespace zb
