#include "rehearsal/line_source.h"

#include "platform/text_file.h"

#include <cerrno>

namespace zb::rehearsal {

namespace {

constexpr std::size_t kChunk = std::size_t{256} << 10U;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

} // namespace

Result<LineSource> LineSource::open(const std::filesystem::path& path) {
    LineSource source;
    std::error_code fault;
    if (!std::filesystem::is_regular_file(path, fault))
        return systemError(fault ? fault.value() : std::filesystem::is_directory(path) ? EISDIR : EINVAL);
    source.file_.open(path, std::ios::binary);
    if (!source.file_)
        return systemError(errno);
    source.fill();
    const std::string_view start = source.buffer_;
    if (start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF")) {
        Result<std::string> bytes = readBytes(path);
        if (!bytes)
            return bytes.error();
        return ofText(decodeText(*std::move(bytes), CodePage(1252)));
    }
    if (start.starts_with(kUtf8Mark))
        source.begin_ = source.searched_ = kUtf8Mark.size();
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
    buffer_.resize(size + kChunk);
    file_.read(buffer_.data() + size, static_cast<std::streamsize>(kChunk));
    buffer_.resize(size + static_cast<std::size_t>(file_.gcount()));
    return buffer_.size() > size;
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
