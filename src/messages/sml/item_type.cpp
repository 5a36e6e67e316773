#include "messages/sml/item_type.h"

#include "messages/sml/characters.h"

#include <array>

namespace zb::sml {

namespace {

struct Spelling {
    std::string_view word;
    ItemType type;
};

// The first spelling of a type is that of an item Text. The rarer ones come last, since the search goes from
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
    // Text with the number of its encoding; a definition has no such type.
    Spelling{"W", ItemType::any},
};

} // namespace

std::optional<ItemType> itemTypeOf(std::string_view word) {
    constexpr std::size_t kLongest = 7;
    if (word.empty() || word.size() > kLongest)
        return std::nullopt;
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
