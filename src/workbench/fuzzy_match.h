#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zb {

/// The letters and digits of a text, one bit for each; all other characters share one. A word that matches a
/// text has no letter that the text lacks.
std::uint64_t lettersOf(std::string_view text);
/// The text with its ASCII letters in lower case.
std::string foldedText(std::string_view text);
/// Where words begin, one bit for each of the first 64 bytes: "Port" and "Refused" in "PortRefused", "SVID"
/// and "COUNT" in "SVID_COUNT", "S" and "12" in "S12".
std::uint64_t wordStartsOf(std::string_view text);

/// A text in the form in which it is searched.
struct SearchText {
    std::string_view folded;
    std::uint64_t wordStarts = 0;

    bool isWordStart(std::size_t at) const { return at < 64 && (wordStarts >> at & 1U) != 0; }
};

/// A word that is typed to find a name. It matches a text that has its characters in this order, with others
/// between them; the case of ASCII letters does not count.
class FuzzyWord {
public:
    explicit FuzzyWord(std::string_view typed) : word_(foldedText(typed)), letters_(lettersOf(typed)) {}

    std::uint64_t letters() const { return letters_; }
    std::size_t size() const { return word_.size(); }
    /// How well the text matches, 0 for not at all. From best to worst: the text begins with the word; a word
    /// of the text does; it is anywhere in one piece; its pieces begin words of the text; it is scattered. Of
    /// equals, the shorter text is better.
    int score(const SearchText& text) const;

private:
    int scoreInOnePiece(const SearchText& text) const;
    int scoreAtWordStarts(const SearchText& text) const;
    int scoreScattered(std::string_view text) const;

    std::string word_;
    std::uint64_t letters_ = 0;
};

} // namespace zb
