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
    Spelling{"L", ItemType::list},
    Spelling{"A", ItemType::ascii},
    Spelling{"J", ItemType::jis8},
    Spelling{"X", ItemType::any},
    Spelling{"B", ItemType::binary},
    Spelling{"BOOLEAN", ItemType::boolean},
    Spelling{"I1", ItemType::i1},
    Spelling{"I2", ItemType::i2},
    Spelling{"I4", ItemType::i4},
    Spelling{"I8", ItemType::i8},
    Spelling{"U1", ItemType::u1},
    Spelling{"U2", ItemType::u2},
    Spelling{"U4", ItemType::u4},
    Spelling{"U8", ItemType::u8},
    Spelling{"F4", ItemType::f4},
    Spelling{"F8", ItemType::f8},
    Spelling{"V", ItemType::any},
    Spelling{"BOOL", ItemType::boolean},
    Spelling{"LIST", ItemType::list},
    Spelling{"ASCII", ItemType::ascii},
    Spelling{"JIS8", ItemType::jis8},
    Spelling{"BINARY", ItemType::binary},
    Spelling{"BIN", ItemType::binary},
    // Text with a number for its encoding; a definition has no such type.
    Spelling{"W", ItemType::any},
};

constexpr int codeOf(char letter, char bytes) {
    return letter * 256 + bytes;
}

// Only the types with a byte count have two characters, and most items have one of them.
std::optional<ItemType> numberTypeOf(char letter, char bytes) {
    using enum ItemType;
    switch (codeOf(letter, bytes)) {
    case codeOf('I', '1'):
        return i1;
    case codeOf('I', '2'):
        return i2;
    case codeOf('I', '4'):
        return i4;
    case codeOf('I', '8'):
        return i8;
    case codeOf('U', '1'):
        return u1;
    case codeOf('U', '2'):
        return u2;
    case codeOf('U', '4'):
        return u4;
    case codeOf('U', '8'):
        return u8;
    case codeOf('F', '4'):
        return f4;
    case codeOf('F', '8'):
        return f8;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<ItemType> itemTypeOf(std::string_view word) {
    constexpr std::size_t kLongest = 7;
    if (word.empty() || word.size() > kLongest)
        return std::nullopt;
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
