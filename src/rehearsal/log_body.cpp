#include "rehearsal/log_body.h"

#include "messages/sml/characters.h"

namespace zb::rehearsal {

namespace {

using sml::stripped;

/// No message is larger than a frame.
constexpr std::size_t kLongestText = std::size_t{64} << 20U;

bool startsComment(std::string_view rest) {
    return rest.empty() || rest.front() == '*' || rest.front() == '#' || rest.starts_with("//") ||
           rest.starts_with("/*");
}

/// Whether the line ends a message: a point alone, or after the last bracket.
bool hasFinalPoint(std::string_view line, bool hasItems) {
    const std::string_view text = stripped(line);
    if (text.starts_with("."))
        return !text.starts_with("..") && startsComment(stripped(text.substr(1)));
    if (!hasItems && text.find('<') == std::string_view::npos)
        return false;
    for (std::size_t point = text.rfind('.'); point != std::string_view::npos && point > 0;
         point = text.rfind('.', point - 1)) {
        const std::string_view before = stripped(text.substr(0, point));
        if (before.ends_with('>') && startsComment(stripped(text.substr(point + 1))))
            return true;
    }
    return false;
}

} // namespace

void LogBody::clear() {
    text_.clear();
    depth_ = 0;
    hasItems_ = false;
    state_ = State::Open;
}

/// Brackets within quotes do not count.
void LogBody::countBrackets(std::string_view line) {
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char c = line[at];
        if (c == '<') {
            hasItems_ = true;
            ++depth_;
        } else if (c == '>' && depth_ > 0) {
            --depth_;
        } else if (sml::isQuote(c)) {
            std::size_t end = line.find(c, at + 1);
            while (end != std::string_view::npos && end + 1 < line.size() && sml::isWordStart(line[end + 1]))
                end = line.find(c, end + 1);
            if (end != std::string_view::npos)
                at = end;
        }
    }
}

LogBody::State LogBody::add(std::string_view line) {
    if (text_.size() + line.size() > kLongestText)
        return state_ = State::Ended;
    text_.append(line).append("\n");
    countBrackets(line);
    if (hasFinalPoint(line, hasItems_))
        state_ = State::Ended;
    else if (hasItems_ && depth_ == 0)
        state_ = State::Closed;
    return state_;
}

} // namespace zb::rehearsal
