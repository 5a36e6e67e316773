#pragma once

#include "messages/sml/sml.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb::sml {

/// Collects findings by their offset in the text, and counts lines only once, at the end.
class FindingCollector {
public:
    explicit FindingCollector(std::string_view text) : text_(text) {}

    void note(std::size_t offset, std::string text) { add(Severity::Note, offset, std::move(text)); }
    void warn(std::size_t offset, std::string text) { add(Severity::Warning, offset, std::move(text)); }
    void fail(std::size_t offset, std::string text) { add(Severity::Error, offset, std::move(text)); }

    /// The findings in the order of the text, with line and column.
    Findings take();

private:
    struct Entry {
        Severity severity;
        std::size_t offset;
        std::string text;
    };
    void add(Severity severity, std::size_t offset, std::string text);

    std::string_view text_;
    std::vector<Entry> entries_;
    std::size_t leftOut_ = 0;
};

/// The text at the offset, for "found ...": a word, a character in quotes, or the end of the file.
std::string foundAt(std::string_view text, std::size_t offset);

} // namespace zb::sml
