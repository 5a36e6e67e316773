#pragma once

#include "platform/finding.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// An item in the form of a tree: blanks and tabs outside of the quoted value become single blanks, and the
/// type is upper-cased.
std::string cleanItemText(std::string_view text);

/// One message within a longer text; all views refer to that text.
struct SmdMessageText {
    std::string_view description;
    std::string_view head; ///< trimmed, without the "." of a message with no items
    std::string_view body; ///< the lines of the items, with the final "."
    std::size_t headLine = 0;
    std::size_t bodyLine = 0;
    bool ended = false; ///< by its "."
};

/// Splits a text into its messages. Accepts project form and build form, CR LF and LF, tabs, and a message
/// without its final ".". Lines that belong to no message are reported as findings and ignored.
class SmdTextSplitter {
public:
    explicit SmdTextSplitter(std::string_view text, Findings* findings = nullptr)
        : text_(text), findings_(findings) {}

    std::optional<SmdMessageText> next();

private:
    bool atLine();
    void takeLine();
    void takeComment();
    void takeBody(SmdMessageText& message);
    void tell(Severity severity, std::string text);

    std::string_view text_;
    Findings* findings_;
    std::size_t position_ = 0;
    std::size_t lineNumber_ = 0;
    std::string_view line_; ///< the current line, when `peeked_`
    std::size_t afterLine_ = 0;
    bool peeked_ = false;
    std::string_view description_;
};

/// One item of a message's body.
struct SmdItemText {
    int level = 0;    ///< 1 for a direct item
    std::string text; ///< without brackets
    std::size_t line = 0;
};

/// Walks over the items of a message's body. In project form the indentation defines the level, in build form
/// the brackets; there the type is upper-cased, and blanks and tabs between words count as one blank.
class SmdBodyReader {
public:
    explicit SmdBodyReader(std::string_view body, std::size_t firstLine = 1, Findings* findings = nullptr)
        : body_(body), lineNumber_(firstLine - 1), findings_(findings) {}

    /// False at the end, after open lists have been reported.
    bool next(SmdItemText& item);

private:
    void takeBareItem(std::string_view line, SmdItemText& item);
    void takeBracketItem(std::string_view line, SmdItemText& item);
    void close(std::size_t closers, bool ended);
    void tell(std::string text);

    std::string_view body_;
    std::size_t lineNumber_;
    Findings* findings_;
    long lastDepth_ = 0;
    int level_ = 0;
    int openLists_ = 0;
};

} // namespace zb
