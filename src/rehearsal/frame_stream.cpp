#include "rehearsal/frame_stream.h"

namespace zb::rehearsal {

namespace {

using secs2::bigEndian32;
using secs2::decodeHeader;
using secs2::Header;
using secs2::isPlausibleHeader;
using secs2::kHsmsHeaderSize;
using secs2::kHsmsLengthSize;

constexpr std::size_t kStart = kHsmsLengthSize + kHsmsHeaderSize;
constexpr std::uint16_t kControlSession = 0xFFFF;

} // namespace

bool isFrameStart(std::string_view bytes) {
    const std::size_t length = bigEndian32(bytes);
    if (length < kHsmsHeaderSize || length > secs2::kLongestFrame ||
        !isPlausibleHeader(bytes.substr(kHsmsLengthSize)))
        return false;
    const Header header = decodeHeader(bytes.substr(kHsmsLengthSize));
    return header.isControl() ? length == kHsmsHeaderSize : header.stream > 0;
}

void FrameStream::append(std::string_view bytes) {
    bytes_.erase(0, begin_);
    begin_ = 0;
    bytes_ += bytes;
}

void FrameStream::markGap() {
    skipped_ += pending();
    begin_ = bytes_.size();
    searching_ = true;
}

bool FrameStream::fitsSession(std::string_view bytes) const {
    const std::uint16_t session = decodeHeader(bytes.substr(kHsmsLengthSize)).session;
    return !session_ || session == *session_ || session == kControlSession;
}

bool FrameStream::findFrame() {
    while (pending() >= kStart) {
        const std::string_view rest = std::string_view(bytes_).substr(begin_);
        if (isFrameStart(rest) && (!searching_ || fitsSession(rest))) {
            searching_ = false;
            return true;
        }
        searching_ = true;
        ++begin_;
        ++skipped_;
    }
    return false;
}

std::optional<std::string_view> FrameStream::next() {
    if (!findFrame())
        return std::nullopt;
    const std::string_view rest = std::string_view(bytes_).substr(begin_);
    const std::size_t length = bigEndian32(rest);
    if (rest.size() - kHsmsLengthSize < length)
        return std::nullopt;
    begin_ += kHsmsLengthSize + length;
    const std::string_view frame = rest.substr(kHsmsLengthSize, length);
    if (const Header header = decodeHeader(frame); !header.isControl() || !session_)
        session_ = header.session;
    return frame;
}

std::size_t FrameStream::takeSkipped() {
    const std::size_t skipped = skipped_;
    skipped_ = 0;
    return skipped;
}

} // namespace zb::rehearsal
