#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace zb {

/// An ANSI code page: the one- or two-byte encoding in which the lengths of texts are counted, and in which
/// older files are written. Copies are cheap; all functions are safe to call from any thread.
class CodePage {
public:
    /// A number that is not a code page with ASCII in its lower half falls back to 1252.
    explicit CodePage(int number);

    /// The number in use, 1252 after a fallback.
    int number() const;
    /// Whether the requested number was found.
    bool known() const;

    /// A byte that belongs to no character becomes U+FFFD.
    std::string toUtf8(std::string_view bytes) const;
    /// A character that the code page does not have becomes one "?".
    std::string fromUtf8(std::string_view utf8) const;

    /// The bytes start1 (from 1) up to count of the text's ANSI form, as text. The part past either end is
    /// left out. A cut through a two-byte character leaves an orphan: a byte that forms a character with the
    /// bytes after it, or alone, is that character; any other becomes one "?", so that the result has no more
    /// than count bytes.
    std::string midAnsi(std::string_view text, long start1, long count) const;
    std::size_t ansiByteLength(std::string_view text) const;
    /// The ANSI value of the first character, lead byte times 256 plus trail byte for a two-byte one; 0 for
    /// an empty text.
    unsigned ansiValue(std::string_view oneCharacterUtf8) const;

private:
    class Converter;
    std::shared_ptr<const Converter> converter_;
};

/// The ANSI code page of a system with this locale ("ko_KR.UTF-8" is 949); 1252 when the locale is unknown.
int codePageFromLocale(std::string_view localeName);

/// The code page of the setting `AnsiCodePage` if that is the number of a known one, otherwise that of the
/// locale.
CodePage chooseCodePage(std::string_view setting, std::string_view localeName);

} // namespace zb
