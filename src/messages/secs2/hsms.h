#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Messages on TCP: 4 bytes length, 10 bytes header, data.
namespace zb::secs2 {

inline constexpr std::size_t kHsmsLengthSize = 4;
inline constexpr std::size_t kHsmsHeaderSize = 10;
/// The usual port of the passive side.
inline constexpr int kHsmsPort = 5000;
/// A longer frame is taken for damage: a message of this size takes minutes on a link.
inline constexpr std::size_t kLongestFrame = std::size_t{64} << 20U;

/// The header of an HSMS message, or of a SECS-I message after its blocks were joined.
struct Header {
    std::uint16_t session = 0; ///< the device id; 0xFFFF for control messages
    bool wait = false;
    std::uint8_t stream = 0; ///< 0 to 127
    std::uint8_t function = 0;
    std::uint8_t pType = 0;
    std::uint8_t sType = 0; ///< 0 for data, otherwise a control message
    std::uint32_t system = 0;

    bool isControl() const { return sType != 0; }
    bool operator==(const Header&) const = default;
};

/// `bytes` has at least kHsmsHeaderSize bytes.
Header decodeHeader(std::string_view bytes);
void appendHeader(std::string& bytes, const Header& header);
/// Appends a whole frame, with the length in front. `data` is that of the message.
void appendFrame(std::string& bytes, const Header& header, std::string_view data);

/// "Select.req" for the SType of a control message; empty for other numbers.
std::string_view controlName(unsigned sType);
/// The SType for the name of a control message, in any case; 0 for other words.
unsigned controlType(std::string_view name);

/// Whether the bytes, at least kHsmsHeaderSize, may be the header of a message: a known SType, and PType 0.
bool isPlausibleHeader(std::string_view bytes);

/// The number in the first four bytes.
std::uint32_t bigEndian32(std::string_view bytes);

} // namespace zb::secs2
