#pragma once

#include "messages/secs2/hsms.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zb::rehearsal {

/// Whether the bytes may be the start of an HSMS frame. At least kHsmsLengthSize + kHsmsHeaderSize bytes.
bool isFrameStart(std::string_view bytes);

/// Cuts the bytes of one direction of a connection into HSMS frames. After missing bytes it looks for the
/// next frame.
class FrameStream {
public:
    void append(std::string_view bytes);
    /// Bytes are missing here.
    void markGap();

    /// The next complete frame, without its length; valid until the next call of any function.
    std::optional<std::string_view> next();
    /// The bytes that belong to no frame, since the last call.
    std::size_t takeSkipped();
    /// The bytes of a frame that is not complete.
    std::size_t pending() const { return bytes_.size() - begin_; }
    /// Whether a frame was found.
    bool hasFrames() const { return session_.has_value(); }

private:
    bool findFrame();
    bool fitsSession(std::string_view bytes) const;

    std::string bytes_;
    std::size_t begin_ = 0;
    std::size_t skipped_ = 0;
    bool searching_ = true;
    std::optional<std::uint16_t> session_;
};

} // namespace zb::rehearsal
