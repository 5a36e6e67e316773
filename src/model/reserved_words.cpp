#include "model/reserved_words.h"

#include <algorithm>
#include <array>

namespace zb {

bool checkReservedWord(std::string_view upperName) {
    constexpr std::array<std::string_view, 27> kWords{
        "PRIVATE", "PUBLIC", "FRIEND", "END",    "FUNCTION", "SUB",     "PROPERTY", "EVENT", "VARIANT",
        "INTEGER", "STRING", "LONG",   "DOUBLE", "BYTE",     "BOOLEAN", "CURRENCY", "DATE",  "SINGLE",
        "OBJECT",  "ENUM",   "CONST",  "TYPE",   "DECLARE",  "NEW",     "DIM",      "LOAD",  "UNLOAD"};
    return std::find(kWords.begin(), kWords.end(), upperName) != kWords.end();
}

} // namespace zb
