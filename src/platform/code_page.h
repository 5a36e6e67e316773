#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace zb {

// An ANSI code page: the one- or two-byte form in which the lengths of texts count, and in which older files
// are written. A value that copies cheaply; all its functions may run on any thread at once.
class CodePage {
public:
    // A number that is no code page with ASCII in its lower half falls back to 1252.
    explicit CodePage(int number);

    // The number in use, 1252 after a fall-back.
    int number() const;
    // Whether the number asked for was found.
    bool known() const;

    // A byte that belongs to no character becomes U+FFFD.
    std::string toUtf8(std::string_view bytes) const;
    // A character that the code page does not have becomes one "?".
    std::string fromUtf8(std::string_view utf8) const;

    // The bytes start1 (from 1 on) up to count of the text's ANSI form, as text. What reaches past either end
    // is left out. A cut through a two-byte character leaves an orphan: a byte that makes a character with
    // what follows it, or alone, is that character; any other becomes one "?", so that the result measures no
    // more than count bytes.
    std::string midAnsi(std::string_view text, long start1, long count) const;
    std::size_t ansiByteLength(std::string_view text) const;
    // The ANSI value of the first character, lead byte times 256 plus trail byte for a two-byte one; 0 for an
    // empty text.
    unsigned ansiValue(std::string_view oneCharacterUtf8) const;

private:
    class Converter;
    std::shared_ptr<const Converter> converter_;
};

// The ANSI code page of a system with this locale ("ko_KR.UTF-8" is 949), 1252 where nothing better is known.
int codePageFromLocale(std::string_view localeName);

// The code page of the setting `AnsiCodePage` when that is the number of a known one, else of the locale.
CodePage chooseCodePage(std::string_view setting, std::string_view localeName);

} // namespace zb
