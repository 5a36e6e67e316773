#ifndef ZELTO_HEADER_H
#define ZELTO_HEADER_H

#include "any.h"

#include <optional>

namespace zelto {

/// One number for the stream and function of a message.
constexpr int functionCode(int stream, int function) {
    return stream * 256 + function;
}

/// The header of a message.
struct Header {
    std::uint16_t session = 0; ///< the device id
    std::uint8_t stream = 0;   ///< 0 to 127
    std::uint8_t function = 0;
    bool wait = false;        ///< a reply is expected
    std::uint32_t system = 0; ///< ties a reply to its primary message

    bool isPrimary() const { return function % 2 == 1; }

    /// The header of the reply to this primary message.
    Header reply() const { return {session, stream, static_cast<std::uint8_t>(function + 1), false, system}; }
    /// The header of function 0, which ends the transaction of this message without an answer.
    Header abort() const { return {session, stream, 0, false, system}; }

    /// The ten bytes on the link.
    std::string bytes() const {
        std::string header;
        appendBigEndian(header, session, 2);
        appendBigEndian(header, static_cast<std::uint64_t>(stream) | (wait ? 0x80U : 0U), 1);
        appendBigEndian(header, function, 1);
        appendBigEndian(header, 0, 2);
        appendBigEndian(header, system, 4);
        return header;
    }
    /// Nothing when there are fewer than ten bytes, or when they are those of a control message.
    static std::optional<Header> fromBytes(std::string_view bytes) {
        if (bytes.size() < 10 || bytes[4] != 0 || bytes[5] != 0)
            return std::nullopt;
        const auto number = [bytes](std::size_t at, std::size_t width) { return bigEndian(bytes.substr(at, width)); };
        return Header{static_cast<std::uint16_t>(number(0, 2)), static_cast<std::uint8_t>(number(2, 1) & 0x7FU),
                      static_cast<std::uint8_t>(number(3, 1)), number(2, 1) > 0x7F,
                      static_cast<std::uint32_t>(number(6, 4))};
    }

    bool operator==(const Header&) const = default;
};

} // namespace zelto

#endif
