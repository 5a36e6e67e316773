#pragma once

#include "platform/result.h"
#include "platform/utf16.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

namespace zb::rehearsal {

/// A longer line is given in pieces of this length.
inline constexpr std::size_t kLongestLine = std::size_t{64} << 20U;

/// The lines of a file, however large it is. UTF-16 with a mark is converted; any other text is taken as it
/// is.
class LineSource {
public:
    /// The error is the system's when the file cannot be opened.
    static Result<LineSource> open(const std::filesystem::path& path);
    /// The lines of a text.
    static LineSource ofText(std::string text);

    /// The next line, without its line end; valid until the next call.
    std::optional<std::string_view> next();
    /// Of the line that `next` returned last, from 1.
    std::size_t lineNumber() const { return lineNumber_; }
    /// Whether the lines ended because the file could not be read on.
    bool isBroken() const { return file_.bad(); }
    /// The bytes of the file that have been read, and all that it had when it was opened; 0 for a text.
    /// @{
    std::size_t bytesRead() const { return bytesRead_; }
    std::size_t bytes() const { return bytes_; }
    /// @}

private:
    bool fill();
    void appendUtf16();

    std::ifstream file_;
    std::string buffer_;
    std::optional<ByteOrder> utf16_; ///< the file is converted
    std::string undecoded_;          ///< the first half of a character at the end of what was read
    std::size_t begin_ = 0;
    std::size_t searched_ = 0;
    std::size_t lineNumber_ = 0;
    std::size_t bytesRead_ = 0;
    std::size_t bytes_ = 0;
};

} // namespace zb::rehearsal
