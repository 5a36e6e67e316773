#include "messages/secs2/hsms.h"

#include "platform/text.h"

#include <array>

namespace zb::secs2 {

namespace {

constexpr unsigned kHighBit = 0x80;

unsigned byteAt(std::string_view bytes, std::size_t offset) {
    return static_cast<unsigned char>(bytes[offset]);
}

struct ControlType {
    unsigned sType;
    std::string_view name;
};
constexpr std::array kControlTypes = {
    ControlType{1, "Select.req"},   ControlType{2, "Select.rsp"},   ControlType{3, "Deselect.req"},
    ControlType{4, "Deselect.rsp"}, ControlType{5, "Linktest.req"}, ControlType{6, "Linktest.rsp"},
    ControlType{7, "Reject.req"},   ControlType{9, "Separate.req"},
};

void appendBigEndian(std::string& bytes, std::uint32_t value, unsigned width) {
    for (unsigned i = width; i-- > 0;)
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
}

} // namespace

std::uint32_t bigEndian32(std::string_view bytes) {
    return byteAt(bytes, 0) << 24U | byteAt(bytes, 1) << 16U | byteAt(bytes, 2) << 8U | byteAt(bytes, 3);
}

Header decodeHeader(std::string_view bytes) {
    Header header;
    header.session = static_cast<std::uint16_t>(byteAt(bytes, 0) << 8U | byteAt(bytes, 1));
    header.wait = (byteAt(bytes, 2) & kHighBit) != 0;
    header.stream = static_cast<std::uint8_t>(byteAt(bytes, 2) & ~kHighBit);
    header.function = static_cast<std::uint8_t>(byteAt(bytes, 3));
    header.pType = static_cast<std::uint8_t>(byteAt(bytes, 4));
    header.sType = static_cast<std::uint8_t>(byteAt(bytes, 5));
    header.system = bigEndian32(bytes.substr(6));
    return header;
}

void appendHeader(std::string& bytes, const Header& header) {
    appendBigEndian(bytes, header.session, 2);
    appendBigEndian(bytes, header.stream | (header.wait ? kHighBit : 0U), 1);
    appendBigEndian(bytes, header.function, 1);
    appendBigEndian(bytes, header.pType, 1);
    appendBigEndian(bytes, header.sType, 1);
    appendBigEndian(bytes, header.system, 4);
}

void appendFrame(std::string& bytes, const Header& header, std::string_view data) {
    appendBigEndian(bytes, static_cast<std::uint32_t>(kHsmsHeaderSize + data.size()), 4);
    appendHeader(bytes, header);
    bytes += data;
}

std::string_view controlName(unsigned sType) {
    for (const ControlType& type : kControlTypes)
        if (type.sType == sType)
            return type.name;
    return {};
}

unsigned controlType(std::string_view name) {
    const std::string wanted = lower(name);
    for (const ControlType& type : kControlTypes)
        if (lower(type.name) == wanted)
            return type.sType;
    return 0;
}

bool isPlausibleHeader(std::string_view bytes) {
    const unsigned sType = byteAt(bytes, 5);
    return byteAt(bytes, 4) == 0 && (sType == 0 || !controlName(sType).empty());
}

} // namespace zb::secs2
