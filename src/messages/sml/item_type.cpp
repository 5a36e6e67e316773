#include "messages/sml/item_type.h"

#include "messages/sml/characters.h"

#include <array>

namespace zb::sml {

namespace {

struct Spelling {
    std::string_view word;
    ItemType type;
};

// The first spelling of a type is that of an item Text. The rarer ones are last, since the search starts at
// the top.
constexpr std::array kSpellings = {
    Spelling{"L", ItemType::List},        Spelling{"A", ItemType::Ascii},
    Spelling{"J", ItemType::Jis8},        Spelling{"X", ItemType::Any},
    Spelling{"B", ItemType::Binary},      Spelling{"BOOLEAN", ItemType::Boolean},
    Spelling{"I1", ItemType::I1},         Spelling{"I2", ItemType::I2},
    Spelling{"I4", ItemType::I4},         Spelling{"I8", ItemType::I8},
    Spelling{"U1", ItemType::U1},         Spelling{"U2", ItemType::U2},
    Spelling{"U4", ItemType::U4},         Spelling{"U8", ItemType::U8},
    Spelling{"F4", ItemType::F4},         Spelling{"F8", ItemType::F8},
    Spelling{"BOOL", ItemType::Boolean},  Spelling{"LIST", ItemType::List},
    Spelling{"ASCII", ItemType::Ascii},   Spelling{"JIS8", ItemType::Jis8},
    Spelling{"BINARY", ItemType::Binary}, Spelling{"BIN", ItemType::Binary},
};

// Only the types with a byte count have two characters, and most items have one of them. A table, since which
// of them comes next cannot be predicted.
constexpr std::size_t kLetters = 26;
constexpr std::size_t kDigits = 10;
using NumberTypes = std::array<std::array<std::optional<ItemType>, kDigits>, kLetters>;

constexpr NumberTypes kNumberTypes = [] {
    NumberTypes types{};
    for (const Spelling& spelling : kSpellings)
        if (spelling.word.size() == 2)
            types[static_cast<std::size_t>(spelling.word[0] - 'A')]
                 [static_cast<std::size_t>(spelling.word[1] - '0')] = spelling.type;
    return types;
}();

std::optional<ItemType> numberTypeOf(char letter, char bytes) {
    const auto row = static_cast<std::size_t>(letter - 'A');
    const auto column = static_cast<std::size_t>(bytes - '0');
    return row < kLetters && column < kDigits ? kNumberTypes[row][column] : std::nullopt;
}

// Half of the items have a type of one letter.
std::optional<ItemType> letterTypeOf(char letter) {
    using enum ItemType;
    switch (letter) {
    case 'L':
        return List;
    case 'A':
        return Ascii;
    case 'J':
        return Jis8;
    case 'B':
        return Binary;
    case 'X':
    case 'V':
    case 'W': // text with a number for its encoding; a definition has no such type
        return Any;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<ItemType> itemTypeOf(std::string_view word) {
    constexpr std::size_t kLongest = 7;
    if (word.empty() || word.size() > kLongest)
        return std::nullopt;
    if (word.size() == 1)
        return letterTypeOf(upperLetter(word[0]));
    if (word.size() == 2)
        return numberTypeOf(upperLetter(word[0]), word[1]);
    const char first = upperLetter(word[0]);
    for (const Spelling& spelling : kSpellings)
        if (spelling.word[0] == first && isWord(word, spelling.word))
            return spelling.type;
    return std::nullopt;
}

std::string_view typeWord(ItemType type) {
    return kSpellings[static_cast<std::size_t>(type)].word;
}

} // namespace zb::sml
