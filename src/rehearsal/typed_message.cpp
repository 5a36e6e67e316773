#include "rehearsal/typed_message.h"

#include "messages/secs2/sml_data.h"
#include "platform/text.h"
#include "rehearsal/log_line.h"

#include <algorithm>

namespace zb::rehearsal {

namespace {

TypedFault faultAt(std::string_view text, std::size_t offset, std::string why) {
    const std::string_view before = text.substr(0, offset);
    const std::size_t lineBreak = before.rfind('\n');
    const std::size_t begin = lineBreak == std::string_view::npos ? 0 : lineBreak + 1;
    TypedFault fault;
    fault.line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
    fault.column = codePointCount(before.substr(begin)) + 1;
    fault.text = std::move(why);
    return fault;
}

std::string_view lineAt(std::string_view text, std::size_t begin) {
    return text.substr(begin, text.find('\n', begin) - begin);
}

} // namespace

std::string TypedFault::place() const {
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + text;
}

std::variant<RecordedMessage, TypedFault> readTypedMessage(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos)
        return faultAt(text, 0, "a message begins with its stream and function, as S6F11 W");
    const LogLine found = readLogLine(lineAt(text, begin));
    if (!found.head || !isSmlHead(found))
        return faultAt(text, begin, "a message begins with its stream and function, as S6F11 W");
    RecordedMessage message;
    message.header.stream = static_cast<std::uint8_t>(found.head->stream);
    message.header.function = static_cast<std::uint8_t>(found.head->function);
    message.header.wait = found.head->wait;
    message.place = "typed";
    // What is between the head and the first item are marks.
    const std::size_t data = std::min(text.find('<', begin + found.head->end), text.size());
    if (const auto fault = secs2::readSmlData(text.substr(data), message.items))
        return faultAt(text, data + fault->offset, fault->text);
    return message;
}

} // namespace zb::rehearsal
