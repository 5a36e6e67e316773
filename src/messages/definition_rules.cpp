#include "messages/definition_rules.h"

#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>

namespace zb {

namespace {

constexpr DefinitionFault kStream{"You must insert a positive number less than 128 in the stream",
                                  DefinitionFault::Tone::Plain, "smd.stream"};
constexpr DefinitionFault kFunction{"You must insert a positive number less than 255 in the function",
                                    DefinitionFault::Tone::Plain, "smd.function"};
constexpr DefinitionFault kNoName{"Insert item name", DefinitionFault::Tone::Plain, "smd.item.unnamed"};
constexpr DefinitionFault kNumericName{"Only numeric value cannot be a item name.",
                                       DefinitionFault::Tone::Error, "smd.item.name"};
constexpr DefinitionFault kNameChars{"The name of this item is not correct", DefinitionFault::Tone::Error,
                                     "smd.item.name"};
constexpr DefinitionFault kNameTwice{"The name of this item be duplicated", DefinitionFault::Tone::Error,
                                     "smd.item.twice"};
constexpr DefinitionFault kTooManyItems{"There are too many sub items.\r\nChange the item count",
                                        DefinitionFault::Tone::Error, "smd.item.repeated"};
constexpr DefinitionFault kWrongCount{"The count of sub items is not correct.\r\nChange the item count",
                                      DefinitionFault::Tone::Error, "smd.item.count"};
constexpr DefinitionFault kNameWord{"Item name is not correct.", DefinitionFault::Tone::Error,
                                    "smd.item.name"};
constexpr DefinitionFault kBinary{"Insert binary for initial value.", DefinitionFault::Tone::Error,
                                  "smd.item.value"};
constexpr DefinitionFault kBinaryNumber{"Insert binary for initial value..", DefinitionFault::Tone::Error,
                                        "smd.item.value"};
constexpr DefinitionFault kBoolean{"Insert boolean(0, 1, False, True) for initial value.",
                                   DefinitionFault::Tone::Error, "smd.item.value"};
constexpr DefinitionFault kInteger{"Insert integer for initial value.", DefinitionFault::Tone::Error,
                                   "smd.item.value"};
constexpr DefinitionFault kUnsigned{"Insert unsigned integer for initial value.",
                                    DefinitionFault::Tone::Error, "smd.item.value"};
constexpr DefinitionFault kFloat{"Insert floating point for initial value.", DefinitionFault::Tone::Error,
                                 "smd.item.value"};
constexpr DefinitionFault kBadType{"Bad item type", DefinitionFault::Tone::Plain, "smd.item.type"};

std::string_view wordAt(std::string_view text, int place) {
    for (; place > 0; --place)
        takeWord(text);
    return takeWord(text);
}

/// Whether the word after its first letter is a number from 0 to `most`.
bool isNumberUpTo(std::string_view word, double most) {
    const std::string_view number = word.empty() ? word : word.substr(1);
    return isNumeric(number) && valueOf(number) >= 0 && valueOf(number) <= most;
}

bool hasSignOrPoint(std::string_view word) {
    return word.find_first_of("+-.") != std::string_view::npos;
}

bool isByte(std::string_view numericWord) {
    const double value = valueOf(numericWord);
    return !hasSignOrPoint(numericWord) && value >= 0 && value <= 255;
}

OptionalFault faultUnless(bool right, const DefinitionFault& fault) {
    return right ? OptionalFault() : OptionalFault(fault);
}

/// For a word in the position of a value, or a numeric word.
OptionalFault faultOfValue(ItemKind kind, std::string_view word, bool isThirdWord) {
    const bool numeric = isNumeric(word);
    switch (kind) {
    case ItemKind::Binary:
        return numeric ? faultUnless(isByte(word), kBinary) : OptionalFault(kBinaryNumber);
    case ItemKind::Boolean: {
        const bool named = equalsIgnoringCase(word, "True") || equalsIgnoringCase(word, "False");
        return faultUnless(word == "0" || word == "1" || (named && !isThirdWord), kBoolean);
    }
    case ItemKind::Signed:
        return faultUnless(numeric && !contains(word, "."), kInteger);
    case ItemKind::Unsigned:
        return faultUnless(numeric && !hasSignOrPoint(word), kUnsigned);
    case ItemKind::Float:
        return faultUnless(numeric, kFloat);
    default:
        return std::nullopt;
    }
}

OptionalFault faultOfList(std::string_view countWord, int children) {
    if (!countWord.empty() && (countWord.back() == 'V' || countWord.back() == 'v'))
        return faultUnless(children <= 1, kTooManyItems);
    return faultUnless(valueOf(countWord) == children, kWrongCount);
}

/// Reports each fault to `tell` until that returns false.
template<typename Tell>
void visitValueFaults(std::string_view itemText, int children, Tell tell) {
    std::string_view rest = trimmed(itemText);
    const std::string_view type = takeWord(rest);
    // Most types are upper-cased already.
    ItemKind kind = itemKind(type);
    if (kind == ItemKind::Unknown)
        kind = itemKind(upper(type));
    const std::string_view countWord = takeWord(rest);
    if (kind == ItemKind::Unknown || kind == ItemKind::List) {
        const OptionalFault fault = kind == ItemKind::List ? faultOfList(countWord, children) : kBadType;
        if (fault)
            tell(*fault);
        return;
    }
    if (kind == ItemKind::Quoted)
        return;
    for (int place = 2; !rest.empty(); ++place) {
        const std::string_view word = takeWord(rest);
        if (isKeyMark(word))
            continue;
        const bool isThirdWord = place == 2;
        const OptionalFault fault = isThirdWord && !isNumeric(word)
                                        ? faultUnless(!hasSignOrPoint(word), kNameWord)
                                        : faultOfValue(kind, word, isThirdWord);
        if (fault && !tell(*fault))
            return;
    }
}

} // namespace

OptionalFault streamFault(std::string_view nodeText) {
    return faultUnless(isNumberUpTo(wordAt(nodeText, 1), 128), kStream);
}

OptionalFault functionFault(std::string_view nodeText) {
    return faultUnless(isNumberUpTo(wordAt(nodeText, 2), 255), kFunction);
}

OptionalFault nameCharsFault(std::string_view name) {
    const bool right = std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
               c == '.';
    });
    return faultUnless(right, kNameChars);
}

OptionalFault nameFault(const SECSItemRecord& item, NameSet& names) {
    const bool isList = itemKind(item.getType()) == ItemKind::List;
    const std::string& name = item.getName();
    if (isBlank(name))
        return faultUnless(!isList || item.isFixed(), kNoName);
    if (isNumeric(name) && !(isList && item.isFixed()))
        return kNumericName;
    if (const OptionalFault fault = nameCharsFault(name))
        return fault;
    return faultUnless(names.add(name), kNameTwice);
}

OptionalFault valueFault(std::string_view itemText, int children) {
    OptionalFault first;
    visitValueFaults(itemText, children, [&first](const DefinitionFault& fault) {
        first = fault;
        return false;
    });
    return first;
}

std::vector<DefinitionFault> valueFaults(std::string_view itemText, int children) {
    std::vector<DefinitionFault> faults;
    visitValueFaults(itemText, children, [&faults](const DefinitionFault& fault) {
        if (std::find(faults.begin(), faults.end(), fault) == faults.end())
            faults.push_back(fault);
        return true;
    });
    return faults;
}

} // namespace zb
