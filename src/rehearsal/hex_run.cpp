#include "rehearsal/hex_run.h"

namespace zb::rehearsal {

namespace {

constexpr std::size_t kBytesOfDumpLine = 16;
constexpr std::size_t kMiddleOfDumpLine = 8;

int digitOf(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

std::size_t pastDigits(std::string_view line, std::size_t at) {
    while (at < line.size() && digitOf(line[at]) >= 0)
        ++at;
    return at;
}

bool isSeparator(char c) {
    return c == ' ' || c == '\t' || c == ',' || c == ';';
}

bool endsRun(std::string_view line, std::size_t at) {
    return at >= line.size() || isSeparator(line[at]) || line[at] == ']' || line[at] == '|' ||
           line[at] == ')';
}

} // namespace

std::size_t readHexRun(std::string_view line, std::size_t at, HexForm form, std::string& bytes) {
    std::size_t done = at;
    std::size_t count = 0;
    while (form == HexForm::Line || count < kBytesOfDumpLine) {
        std::size_t token = at;
        while (token < line.size() && isSeparator(line[token]))
            ++token;
        if (form == HexForm::Dump && count > 0 && count != kMiddleOfDumpLine && token - at > 1)
            break;
        if (line.substr(token).starts_with("0x") || line.substr(token).starts_with("0X"))
            token += 2;
        const std::size_t end = pastDigits(line, token);
        const std::size_t digits = end - token;
        if (digits == 0 || digits % 2 != 0 || !endsRun(line, end) || (form == HexForm::Dump && digits != 2))
            break;
        for (; token < end; token += 2)
            bytes += static_cast<char>(digitOf(line[token]) * 16 + digitOf(line[token + 1]));
        count += digits / 2;
        done = at = end;
    }
    return done;
}

std::optional<unsigned long> hexNumber(std::string_view line, std::size_t at) {
    const std::size_t end = pastDigits(line, at);
    if (end == at || end - at > 8)
        return std::nullopt;
    unsigned long number = 0;
    for (; at < end; ++at)
        number = number * 16 + static_cast<unsigned long>(digitOf(line[at]));
    return number;
}

std::optional<unsigned long> passDumpOffset(std::string_view line, std::size_t& at) {
    const std::size_t end = pastDigits(line, at);
    if (end - at < 4 || end - at > 8)
        return std::nullopt;
    const bool colon = end < line.size() && line[end] == ':';
    const std::string_view rest = line.substr(std::min(line.size(), end + (colon ? 1 : 0)));
    const std::optional<unsigned long> offset = hexNumber(line, at);
    if (!offset || *offset % kBytesOfDumpLine != 0 ||
        !(rest.starts_with("  ") || (colon && rest.starts_with(" "))))
        return std::nullopt;
    at = line.size() - rest.size() + rest.find_first_not_of(' ');
    return rest.find_first_not_of(' ') == std::string_view::npos ? std::nullopt : offset;
}

} // namespace zb::rehearsal
