#include "rehearsal/log_line.h"

#include "messages/sml/characters.h"
#include "rehearsal/hex_run.h"

#include <algorithm>
#include <array>
#include <string>

namespace zb::rehearsal {

namespace {

using sml::isDigit;
using sml::isLetter;
using sml::isSpace;
using sml::stripped;
using sml::upperLetter;

constexpr std::size_t kNone = std::string_view::npos;

/// The first occurrence without regard to case; `capitals` is in upper case.
std::size_t findWord(std::string_view line, std::string_view capitals, std::size_t from = 0) {
    for (std::size_t at = from; at + capitals.size() <= line.size(); ++at)
        if (upperLetter(line[at]) == capitals[0] && sml::isWord(line.substr(at, capitals.size()), capitals))
            return at;
    return kNone;
}

struct WayWord {
    std::string_view word;
    Way way;
};
/// Longer words before those that they begin with.
constexpr std::array kWayWords = {
    WayWord{"TRY-SEND", Way::TrySent},  WayWord{"RECEIVED", Way::Received}, WayWord{"RECEIVE", Way::Received},
    WayWord{"RECIEVED", Way::Received}, WayWord{"RECIEVE", Way::Received},  WayWord{"RECV", Way::Received},
    WayWord{"RCVD", Way::Received},     WayWord{"RCV", Way::Received},      WayWord{"RX", Way::Received},
    WayWord{"SENDED", Way::Sent},       WayWord{"SENDING", Way::Sent},      WayWord{"SEND", Way::Sent},
    WayWord{"SENT", Way::Sent},         WayWord{"SND", Way::Sent},          WayWord{"REPLY", Way::Sent},
    WayWord{"TX", Way::Sent},
};
struct Arrow {
    std::string_view arrow;
    Way way;
};
constexpr std::array kArrows = {
    Arrow{"H->E", Way::ToEquip}, Arrow{"E<-H", Way::ToEquip}, Arrow{"H<-E", Way::ToHost},
    Arrow{"E->H", Way::ToHost},  Arrow{"<--", Way::Received}, Arrow{"-->", Way::Sent},
    Arrow{"<<", Way::Received},  Arrow{">>", Way::Sent},      Arrow{"<=", Way::Received},
    Arrow{"=>", Way::Sent},
};

/// A word in capitals or not, with neither a letter nor a digit around it.
void findWayWord(LogLine& found, std::size_t end) {
    const std::string_view line = found.line;
    for (std::size_t at = 0; at < end; ++at) {
        const char c = upperLetter(line[at]);
        if ((c != 'R' && c != 'S' && c != 'T') || (at > 0 && (isLetter(line[at - 1]) || line[at - 1] == '-')))
            continue;
        for (const WayWord& word : kWayWords) {
            const std::size_t after = at + word.word.size();
            if (after <= line.size() && sml::isWord(line.substr(at, word.word.size()), word.word) &&
                (after == line.size() || !isLetter(line[after]))) {
                found.way = word.way;
                found.afterWay = after;
                return;
            }
        }
    }
}

void findArrow(LogLine& found, std::size_t end) {
    const std::string_view line = found.line.substr(0, end);
    std::size_t first = kNone;
    for (const Arrow& arrow : kArrows) {
        const std::size_t at = line.find(arrow.arrow);
        if (at >= first)
            continue;
        first = at;
        found.way = arrow.way;
        found.afterWay = at + arrow.arrow.size();
    }
}

/// "[192.168.1.51:2493 -> 192.168.1.31:5000]"
void findPorts(LogLine& found) {
    const std::string_view line = found.line;
    const std::size_t arrow = line.find("->");
    const std::size_t closer = arrow == kNone ? kNone : line.find(']', arrow);
    const std::size_t opener = closer == kNone ? kNone : line.rfind('[', arrow);
    if (opener == kNone)
        return;
    const auto portOf = [](std::string_view endpoint) -> std::optional<int> {
        endpoint = stripped(endpoint);
        const std::size_t colon = endpoint.rfind(':');
        int port = 0;
        if (colon == kNone || endpoint.size() - colon > 6 || endpoint.size() - colon < 2)
            return std::nullopt;
        for (const char c : endpoint.substr(colon + 1)) {
            if (!isDigit(c))
                return std::nullopt;
            port = port * 10 + (c - '0');
        }
        return port;
    };
    found.fromPort = portOf(line.substr(opener + 1, arrow - opener - 1));
    found.toPort = portOf(line.substr(arrow + 2, closer - arrow - 2));
}

/// The number after a key and "=" or ":", decimal or hexadecimal.
std::optional<std::uint32_t> numberAfter(std::string_view line, std::string_view capitals) {
    std::size_t at = findWord(line, capitals);
    if (at == kNone)
        return std::nullopt;
    at += capitals.size();
    while (at < line.size() && (isSpace(line[at]) || sml::isQuote(line[at])))
        ++at;
    if (at == line.size() || (line[at] != '=' && line[at] != ':'))
        return std::nullopt;
    ++at;
    while (at < line.size() && isSpace(line[at]))
        ++at;
    if (line.substr(at).starts_with("0x") || line.substr(at).starts_with("0X")) {
        const auto number = hexNumber(line, at + 2);
        return number ? std::optional(static_cast<std::uint32_t>(*number)) : std::nullopt;
    }
    std::uint64_t number = 0;
    const std::size_t start = at;
    for (; at < line.size() && isDigit(line[at]) && at - start < 10; ++at)
        number = number * 10 + static_cast<std::uint64_t>(line[at] - '0');
    return at == start ? std::nullopt : std::optional(static_cast<std::uint32_t>(number));
}

/// "[0x0000000B]", "[id:0x0000000B]".
void findBracketedSystem(LogLine& found) {
    const std::size_t mark = found.line.find("0x");
    if (mark == kNone || found.line.rfind('[', mark) == kNone)
        return;
    const std::string_view before = found.line.substr(0, mark);
    const std::size_t closer = found.line.find(']', mark);
    const bool isWhole = before.ends_with('[') || before.ends_with("id:") || before.ends_with("id=");
    if (!isWhole || closer == kNone || closer - mark > 10)
        return;
    if (const auto number = hexNumber(found.line, mark + 2))
        found.system = static_cast<std::uint32_t>(*number);
}

/// "[00 0A|81 0D|00 00|00 00 00 01]"
void findHeaderBytes(LogLine& found) {
    for (std::size_t at = found.line.find('['); at != kNone; at = found.line.find('[', at + 1)) {
        const std::size_t closer = found.line.find(']', at);
        if (closer == kNone || closer - at > 60)
            return;
        std::string digits(found.line.substr(at + 1, closer - at - 1));
        std::replace(digits.begin(), digits.end(), '|', ' ');
        std::string bytes;
        if (readHexRun(digits, 0, HexForm::Line, bytes) !=
                stripped(digits).size() + digits.find_first_not_of(' ') ||
            bytes.size() != secs2::kHsmsHeaderSize)
            continue;
        found.header = secs2::decodeHeader(bytes);
        return;
    }
}

/// "'header': {device_id:0x000a, stream:01, function:13, p_type:0x00, s_type:0x00, system:0x00000001,
/// require_response:True}"
void findHeaderText(LogLine& found) {
    const std::string_view line = found.line;
    const auto stream = numberAfter(line, "STREAM");
    const auto function = numberAfter(line, "FUNCTION");
    const auto system = numberAfter(line, "SYSTEM");
    if (!stream || !function || !system)
        return;
    secs2::Header header;
    header.stream = static_cast<std::uint8_t>(*stream & 0x7FU);
    header.function = static_cast<std::uint8_t>(*function);
    header.system = *system;
    header.session = static_cast<std::uint16_t>(numberAfter(line, "DEVICE_ID").value_or(0));
    header.sType = static_cast<std::uint8_t>(numberAfter(line, "S_TYPE").value_or(0));
    const std::size_t response = findWord(line, "REQUIRE_RESPONSE");
    header.wait = response != kNone && findWord(line, "TRUE", response) != kNone;
    found.header = header;
    const std::size_t key = findWord(line, "HEADER");
    const std::size_t sign = key == kNone || key == 0 ? kNone : line.find_last_of("<>", key - 1);
    if (sign != kNone && stripped(line.substr(sign + 1, key - sign - 1)).size() <= 1) {
        found.way = line[sign] == '<' ? Way::Received : Way::Sent;
        found.afterWay = line.size();
    }
}

std::optional<unsigned> passNumber(std::string_view line, std::size_t& at) {
    const std::size_t start = at;
    unsigned number = 0;
    while (at < line.size() && isDigit(line[at]) && at - start < 3)
        number = number * 10 + static_cast<unsigned>(line[at++] - '0');
    return at == start || (at < line.size() && isDigit(line[at])) ? std::nullopt : std::optional(number);
}

/// "S1F13", "S01F13", "S1 F13", "S1,F13" from `at` on.
std::optional<FoundHead> headAt(std::string_view line, std::size_t at) {
    FoundHead head;
    head.begin = at++;
    const auto stream = passNumber(line, at);
    while (at < line.size() && (line[at] == ' ' || line[at] == ','))
        ++at;
    if (!stream || at >= line.size() || upperLetter(line[at]) != 'F')
        return std::nullopt;
    const auto function = passNumber(line, ++at);
    if (!function || *stream > 127 || *function > 255)
        return std::nullopt;
    if (at < line.size() && upperLetter(line[at]) == 'W' &&
        (at + 1 == line.size() || !isLetter(line[at + 1]))) {
        head.wait = true;
        ++at;
    }
    if (at < line.size() && sml::isWordCharacter(line[at]))
        return std::nullopt;
    head.stream = *stream;
    head.function = *function;
    head.end = at;
    return head;
}

/// The "W" after a head, with the quote that closes the head.
void passMarks(std::string_view line, FoundHead& head) {
    if (head.begin > 0 && sml::isQuote(line[head.begin - 1]) && head.end < line.size() &&
        line[head.end] == line[head.begin - 1]) {
        --head.begin;
        ++head.end;
    }
    std::size_t at = head.end;
    while (at < line.size() && isSpace(line[at]))
        ++at;
    const std::string_view rest = line.substr(at);
    const bool bracketed = rest.starts_with("[W]") || rest.starts_with("[w]");
    const bool bare =
        !rest.empty() && upperLetter(rest[0]) == 'W' && (rest.size() == 1 || !sml::isWordCharacter(rest[1]));
    if (bracketed || bare) {
        head.wait = true;
        head.end = at + (bracketed ? 3 : 1);
    }
}

void findHead(LogLine& found) {
    const std::string_view line = found.line;
    for (std::size_t at = 0; at + 3 < line.size(); ++at) {
        if ((line[at] != 'S' && line[at] != 's') || !isDigit(line[at + 1]) ||
            (at > 0 && sml::isWordCharacter(line[at - 1])))
            continue;
        std::optional<FoundHead> head = headAt(line, at);
        if (!head)
            continue;
        passMarks(line, *head);
        // A name may itself have the form of a head: "S1F1: S1F1 W".
        const std::string_view rest = stripped(line.substr(head->end));
        found.head = head;
        if (!rest.starts_with(':'))
            return;
    }
}

struct ControlWord {
    std::string_view word;
    unsigned sType;
};
constexpr std::array kControlWords = {
    ControlWord{"DESELECT", 3}, ControlWord{"SELECT", 1}, ControlWord{"LINKTEST", 5},
    ControlWord{"SEPARATE", 9}, ControlWord{"REJECT", 7},
};

/// "Select.req", "LinktestRsp", "SelectRequest", "Separate.req"; not a longer word.
void findControl(LogLine& found) {
    for (const ControlWord& word : kControlWords) {
        const std::size_t at = findWord(found.line, word.word);
        if (at == kNone || (at > 0 && isLetter(found.line[at - 1])))
            continue;
        std::string_view rest = found.line.substr(at + word.word.size());
        if (rest.starts_with('.') || rest.starts_with('_') || rest.starts_with(' '))
            rest.remove_prefix(1);
        const bool isRequest = findWord(rest.substr(0, 3), "REQ") == 0;
        const bool isResponse =
            findWord(rest.substr(0, 3), "RSP") == 0 || findWord(rest.substr(0, 3), "RES") == 0;
        if (isRequest || isResponse)
            found.control = word.sType + (isResponse && word.sType < 7 ? 1 : 0);
        return;
    }
}

bool contains(const LogLine& line, std::string_view capitals) {
    return findWord(line.line, capitals) != kNone;
}

} // namespace

bool LogLine::beginsEntry() const {
    if (header && way != Way::Unknown)
        return true;
    if (way == Way::Unknown)
        return false;
    return head || system || control != 0 || fromPort || stripped(line.substr(afterWay)).size() <= 1 ||
           contains(*this, "MESSAGE") || contains(*this, "SECS") || contains(*this, "HSMS") ||
           contains(*this, "DATA");
}

LogLine readLogLine(std::string_view line) {
    LogLine found;
    found.line = line;
    if (line.find_first_not_of(" \t") == kNone)
        return found;
    found.time = findTime(line);
    findHead(found);
    const std::size_t end = found.head ? found.head->begin : line.size();
    findPorts(found);
    findWayWord(found, end);
    if (found.way == Way::Unknown)
        findArrow(found, end);
    findBracketedSystem(found);
    if (const auto system = numberAfter(line, "SYSTEMBYTES"))
        found.system = system;
    if (const auto session = numberAfter(line, "DEVICEID"))
        found.session = static_cast<std::uint16_t>(*session);
    if (const auto size = numberAfter(line, "SIZE"))
        found.size = *size;
    findHeaderBytes(found);
    if (!found.header && findWord(line, "STREAM") != kNone)
        findHeaderText(found);
    findControl(found);
    return found;
}

bool isSmlHead(const LogLine& found) {
    if (!found.head)
        return false;
    const std::string_view rest = stripped(found.line.substr(found.head->end));
    const bool fits = rest.empty() || rest.front() == '.' || rest.front() == '<' || rest.front() == '/' ||
                      rest.front() == '*' || rest.front() == '#' || rest.front() == '=' ||
                      findWord(rest, "H") == 0 || findWord(rest, "INPUT") == 0 ||
                      findWord(rest, "OUTPUT") == 0;
    if (!fits)
        return false;
    if (found.way != Way::Unknown || found.system)
        return true;
    std::size_t begin = 0;
    if (found.time && found.time->end <= found.head->begin)
        begin = found.time->end;
    const std::string_view before = stripped(found.line.substr(begin, found.head->begin - begin));
    return before.empty() || before.ends_with(':') || before.ends_with('|') || before.ends_with(']') ||
           before.ends_with('-');
}

} // namespace zb::rehearsal
