#include "workbench/fuzzy_match.h"

#include <algorithm>
#include <cstddef>

namespace zb {

namespace {

// Each kind of match has a range of scores of its own; the penalties stay within it.
constexpr int kOnePiece = 1000;
constexpr int kAtStart = 400;
constexpr int kAtWordStart = 250;
constexpr int kToWordEnd = 150;
constexpr int kWordStarts = 600;
constexpr int kScattered = 300;
constexpr int kMostPenalty = 60;

constexpr int kDigitBits = 26; // after those of the letters
constexpr int kOtherBit = 63;

char folded(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isLetter(char character) {
    return folded(character) >= 'a' && folded(character) <= 'z';
}

bool isUpper(char character) {
    return character >= 'A' && character <= 'Z';
}

bool beginsWord(char before, char here) {
    if (isDigit(here))
        return !isDigit(before);
    return isLetter(here) && (!isLetter(before) || (isUpper(here) && !isUpper(before)));
}

bool isWordEnd(const SearchText& text, std::size_t end) {
    return end >= text.folded.size() || text.isWordStart(end) ||
           (!isLetter(text.folded[end]) && !isDigit(text.folded[end]));
}

int penalty(std::size_t amount) {
    return static_cast<int>(std::min<std::size_t>(amount, kMostPenalty));
}

} // namespace

std::uint64_t lettersOf(std::string_view text) {
    std::uint64_t letters = 0;
    for (const char raw : text) {
        const char character = folded(raw);
        const int bit = isLetter(character)  ? character - 'a'
                        : isDigit(character) ? kDigitBits + character - '0'
                                             : kOtherBit;
        letters |= std::uint64_t{1} << static_cast<unsigned>(bit);
    }
    return letters;
}

std::string foldedText(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), folded);
    return result;
}

std::uint64_t wordStartsOf(std::string_view text) {
    constexpr std::size_t kBits = 64;
    std::uint64_t starts = text.empty() ? 0 : 1;
    for (std::size_t at = 1; at < text.size() && at < kBits; ++at)
        starts |= std::uint64_t{beginsWord(text[at - 1], text[at])} << at;
    return starts;
}

int FuzzyWord::score(const SearchText& text) const {
    if (word_.empty() || text.folded.size() < word_.size())
        return 0;
    if (const int score = scoreInOnePiece(text); score > 0)
        return score;
    const int scattered = word_.size() == 1 ? 0 : scoreScattered(text.folded);
    return scattered == 0 ? 0 : std::max(scattered, scoreAtWordStarts(text));
}

int FuzzyWord::scoreInOnePiece(const SearchText& text) const {
    int best = 0;
    for (std::size_t at = text.folded.find(word_); at != std::string_view::npos;
         at = text.folded.find(word_, at + 1)) {
        const int place = at == 0 ? kAtStart : text.isWordStart(at) ? kAtWordStart : 0;
        const int end = isWordEnd(text, at + word_.size()) ? kToWordEnd : 0;
        best = std::max(best,
                        kOnePiece + place + end - penalty(at) - penalty(text.folded.size() - word_.size()));
        // Of one letter all word starts are alike, but for their place.
        if (at == 0 || (word_.size() == 1 && place > 0))
            break;
    }
    return best;
}

/// Each character begins a word of the text, or follows the one before it.
int FuzzyWord::scoreAtWordStarts(const SearchText& text) const {
    std::size_t next = 0;
    std::size_t pieces = 0;
    bool follows = false;
    for (std::size_t at = 0; at < text.folded.size() && next < word_.size(); ++at) {
        const bool taken = text.folded[at] == word_[next] && (follows || text.isWordStart(at));
        if (taken && !follows)
            ++pieces;
        next += taken ? 1 : 0;
        follows = taken;
    }
    if (next < word_.size())
        return 0;
    return kWordStarts - 4 * penalty(pieces) - penalty(text.folded.size() - word_.size());
}

/// Of the shortest piece of the text that ends where the first match ends.
int FuzzyWord::scoreScattered(std::string_view text) const {
    std::size_t end = 0;
    for (const char character : word_) {
        end = text.find(character, end);
        if (end == std::string_view::npos)
            return 0;
        ++end;
    }
    std::size_t begin = end;
    std::size_t gaps = 0;
    bool matched = true;
    for (std::size_t next = word_.size(); next > 0;) {
        --begin;
        const bool here = text[begin] == word_[next - 1];
        gaps += matched && !here ? 1 : 0;
        next -= here ? 1 : 0;
        matched = here;
    }
    return kScattered - 2 * penalty(gaps) - penalty(end - begin - word_.size()) -
           penalty(text.size() - word_.size()) / 2;
}

} // namespace zb
