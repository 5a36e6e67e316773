#include "messages/sml/finding_collector.h"

#include "messages/sml/characters.h"
#include "platform/text.h"

#include <algorithm>

namespace zb::sml {

namespace {

// A file that contains only faults must not fill the memory with findings.
constexpr std::size_t kMostFindings = 100'000;

} // namespace

void FindingCollector::add(Severity severity, std::size_t offset, std::string text) {
    if (entries_.size() < kMostFindings)
        entries_.push_back({severity, offset, std::move(text)});
    else
        ++leftOut_;
}

Findings FindingCollector::take() {
    std::stable_sort(entries_.begin(), entries_.end(),
                     [](const Entry& left, const Entry& right) { return left.offset < right.offset; });
    Findings findings;
    findings.reserve(entries_.size() + 1);
    std::size_t line = 1;
    std::size_t column = 1;
    std::size_t at = 0;
    for (Entry& entry : entries_) {
        std::string_view passed = text_.substr(at, std::min(entry.offset, text_.size()) - at);
        at += passed.size();
        line += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
        if (const std::size_t last = passed.rfind('\n'); last != std::string_view::npos) {
            passed.remove_prefix(last + 1);
            column = 1;
        }
        column += codePointCount(passed);
        findings.push_back({entry.severity, FindingPlace::atLine(line, column), std::move(entry.text)});
    }
    if (leftOut_ > 0)
        findings.push_back({Severity::Error, FindingPlace::atLine(line, column),
                            std::to_string(leftOut_) + " further findings are not listed"});
    return findings;
}

std::string foundAt(std::string_view text, std::size_t offset) {
    if (offset >= text.size())
        return "the end of the file";
    if (isLineEnd(text[offset]))
        return "the end of the line";
    constexpr std::size_t kLongest = 24;
    std::size_t end = offset + 1;
    while (end < text.size() && end - offset < kLongest && !isSpace(text[end]) && text[end] != '<' &&
           text[end] != '>' && text[offset] != '<' && text[offset] != '>')
        ++end;
    while (end < text.size() && (text[end] & 0xC0) == 0x80)
        ++end;
    return "\"" + sanitizeUtf8(text.substr(offset, end - offset)) + "\"";
}

} // namespace zb::sml
