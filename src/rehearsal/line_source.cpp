#include "rehearsal/line_source.h"

#include <algorithm>
#include <cerrno>

namespace zb::rehearsal {

namespace {

constexpr std::size_t kChunk = std::size_t{256} << 10U;
constexpr std::size_t kUtf16Unit = 2;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool isLeadSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

} // namespace

Result<LineSource> LineSource::open(const std::filesystem::path& path) {
    LineSource source;
    std::error_code fault;
    const std::filesystem::file_status status = std::filesystem::status(path, fault);
    if (fault)
        return systemError(fault.value());
    if (std::filesystem::is_directory(status))
        return systemError(EISDIR);
    // Reading a pipe or a device could wait or read on for ever.
    if (!std::filesystem::is_regular_file(status))
        return FileError{EINVAL, "Not a regular file"};
    source.file_.open(path, std::ios::binary);
    if (!source.file_)
        return systemError(errno);
    source.bytes_ = static_cast<std::size_t>(std::filesystem::file_size(path, fault));
    std::string mark(kUtf8Mark.size(), '\0');
    source.file_.read(mark.data(), static_cast<std::streamsize>(mark.size()));
    std::streamoff length = 0;
    if (mark.starts_with("\xFF\xFE"))
        source.utf16_ = ByteOrder::LittleEndian;
    else if (mark.starts_with("\xFE\xFF"))
        source.utf16_ = ByteOrder::BigEndian;
    else if (mark == kUtf8Mark)
        length = static_cast<std::streamoff>(kUtf8Mark.size());
    if (source.utf16_)
        length = kUtf16Unit;
    source.file_.clear();
    source.file_.seekg(length);
    return source;
}

LineSource LineSource::ofText(std::string text) {
    LineSource source;
    source.buffer_ = std::move(text);
    return source;
}

bool LineSource::fill() {
    if (!file_.is_open() || !file_)
        return false;
    buffer_.erase(0, begin_);
    searched_ -= begin_;
    begin_ = 0;
    const std::size_t size = buffer_.size();
    std::string& bytes = utf16_ ? undecoded_ : buffer_;
    const std::size_t kept = bytes.size();
    bytes.resize(kept + kChunk);
    file_.read(bytes.data() + kept, static_cast<std::streamsize>(kChunk));
    bytes.resize(kept + static_cast<std::size_t>(file_.gcount()));
    bytesRead_ += static_cast<std::size_t>(file_.gcount());
    if (utf16_)
        appendUtf16();
    return buffer_.size() > size;
}

/// Converts what was read, but a character that its end may have split.
void LineSource::appendUtf16() {
    std::size_t end = undecoded_.size();
    if (file_) {
        end -= end % kUtf16Unit;
        if (end >= kUtf16Unit && isLeadSurrogate(unitAt(undecoded_, end - kUtf16Unit, *utf16_)))
            end -= kUtf16Unit;
    }
    buffer_ += decodeUtf16(std::string_view(undecoded_).substr(0, end), *utf16_).text;
    undecoded_.erase(0, end);
}

std::optional<std::string_view> LineSource::next() {
    std::size_t end = buffer_.find('\n', searched_);
    while (end == std::string::npos && buffer_.size() - begin_ < kLongestLine) {
        searched_ = buffer_.size();
        if (!fill())
            break;
        end = buffer_.find('\n', searched_);
    }
    if (begin_ == buffer_.size())
        return std::nullopt;
    const std::size_t length = std::min(end, buffer_.size()) - begin_;
    std::string_view line = std::string_view(buffer_).substr(begin_, length);
    begin_ += length + (end == std::string::npos ? 0 : 1);
    searched_ = begin_;
    ++lineNumber_;
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

} // namespace zb::rehearsal
