#include "platform/text.h"

#include <algorithm>

namespace zb {

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces;
    if (text.empty())
        return pieces;
    std::size_t start = 0;
    if (!separator.empty()) {
        for (std::size_t end = text.find(separator); end != std::string_view::npos;
             end = text.find(separator, start)) {
            pieces.emplace_back(text.substr(start, end - start));
            start = end + separator.size();
        }
    }
    pieces.emplace_back(text.substr(start));
    return pieces;
}

std::vector<std::string> splitAtBlanks(std::string_view text) {
    return split(text, " ");
}

std::string join(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string joined;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0)
            joined += separator;
        joined += pieces[i];
    }
    return joined;
}

namespace {

std::string_view withoutLeadingBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view withoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

} // namespace

std::string_view trimmed(std::string_view text) {
    return withoutTrailingBlanks(withoutLeadingBlanks(text));
}

std::string trim(std::string_view text) {
    return std::string(trimmed(text));
}

std::string trimRight(std::string_view text) {
    return std::string(withoutTrailingBlanks(text));
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
    if (from.empty())
        return std::string(text);
    std::string replaced;
    replaced.reserve(text.size());
    std::size_t start = 0;
    for (std::size_t found = text.find(from); found != std::string_view::npos;
         found = text.find(from, start)) {
        replaced += text.substr(start, found - start);
        replaced += to;
        start = found + from.size();
    }
    replaced += text.substr(start);
    return replaced;
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string_view before(std::string_view text, std::string_view mark) {
    return text.substr(0, text.find(mark));
}

} // namespace zb
