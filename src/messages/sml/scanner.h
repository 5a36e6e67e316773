#pragma once

#include "messages/sml/characters.h"
#include "messages/sml/finding_collector.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zb::sml {

struct Comment {
    std::size_t offset = 0;
    std::string_view text;  // without its marks
    bool onOwnLine = false; // preceded by a line end
    bool afterBlankLine = false;
};

/// A position in the text. All reading of SML goes through this class, and only forward.
class Scanner {
public:
    Scanner(std::string_view text, FindingCollector& findings) : text_(text), findings_(findings) {}

    std::string_view text() const { return text_; }
    std::size_t offset() const { return offset_; }
    void moveTo(std::size_t offset) { offset_ = offset; }
    void advance(std::size_t count = 1) { offset_ += count; }
    bool atEnd() const { return offset_ >= text_.size(); }
    /// A NUL, which is white space, at the end.
    char peek(std::size_t ahead = 0) const {
        return offset_ + ahead < text_.size() ? text_[offset_ + ahead] : '\0';
    }
    bool startsWith(std::string_view part) const { return text_.substr(offset_, part.size()) == part; }
    bool atEllipsis() const { return startsWith("...") || startsWith("\u2026"); }
    void passEllipsis() {
        while (atEllipsis())
            offset_ += 3;
    }

    /// Skips white space and comments. Its findings are in `comments` and `passedLineEnd` until the next
    /// call.
    void skip() {
        comments_.clear();
        passedLineEnd_ = false;
        lineEnds_ = 0;
        if (!maySkipAt(offset_))
            return;
        // Most often it is the one blank between two words.
        if (text_[offset_] == ' ' && !maySkipAt(offset_ + 1))
            ++offset_;
        else
            skipAll();
    }
    const std::vector<Comment>& comments() const { return comments_; }
    bool passedLineEnd() const { return passedLineEnd_; }

    /// The run of word characters here; may be empty.
    std::string_view word();
    /// The text up to white space or a character that ends a value: the form of a number, valid or not.
    std::string_view valueWord();
    void passLine();

private:
    bool maySkipAt(std::size_t offset) const {
        return offset < text_.size() && isOf(text_[offset], kMaySkip);
    }
    void skipAll();
    std::size_t pastSpace(std::size_t offset);
    bool passComment();
    void passCommentToLineEnd(std::size_t markLength);
    bool passBlockComment(std::string_view closer);
    void addComment(std::size_t offset, std::string_view text);

    std::string_view text_;
    FindingCollector& findings_;
    std::size_t offset_ = 0;
    std::vector<Comment> comments_;
    bool passedLineEnd_ = false;
    std::size_t lineEnds_ = 0;
    /// From here on this closer does not occur: known after one search without a result.
    std::size_t noSlashCloserFrom_ = std::string_view::npos;
    std::size_t noBackslashCloserFrom_ = std::string_view::npos;
};

/// The words of a comment as one line, without the stars around it; empty for a banner.
std::string commentWords(std::string_view comment);

} // namespace zb::sml
