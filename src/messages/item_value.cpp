#include "messages/item_value.h"

#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace zb {

namespace {

using State = TypedValue::State;

constexpr std::string_view kUnsignedRefusal = "Insert unsigned integer for initial value.";
constexpr std::string_view kIntegerRefusal = "Insert integer for initial value.";
constexpr std::string_view kFloatRefusal = "Insert floating point for initial value.";
constexpr std::string_view kFloatWordRefusal = "Insert floating point for initial vlaue.";
constexpr std::string_view kBinaryRefusal = "Insert numeric-type for initial value.";
constexpr std::string_view kBinaryRangeRefusal = "Insert positive integer values between 0 to 255.";
constexpr std::string_view kApostropheRefusal = "You cannot insert \"'\" character";

constexpr double kLeastByte = 0;
constexpr double kMostByte = 255;

struct FormOfType {
    std::string_view type;
    ValueForm form;
};

constexpr std::array kForms{
    FormOfType{"L", ValueForm::None},      FormOfType{"A", ValueForm::Quoted},
    FormOfType{"J", ValueForm::Quoted},    FormOfType{"X", ValueForm::Quoted},
    FormOfType{"B", ValueForm::Binary},    FormOfType{"BOOLEAN", ValueForm::Boolean},
    FormOfType{"I1", ValueForm::Signed},   FormOfType{"I2", ValueForm::Signed},
    FormOfType{"I4", ValueForm::Signed},   FormOfType{"I8", ValueForm::Signed},
    FormOfType{"U1", ValueForm::Unsigned}, FormOfType{"U2", ValueForm::Unsigned},
    FormOfType{"U4", ValueForm::Unsigned}, FormOfType{"U8", ValueForm::Unsigned},
    FormOfType{"F4", ValueForm::Floating}, FormOfType{"F8", ValueForm::Floating},
};

bool hasAnyOf(std::string_view word, std::string_view characters) {
    return word.find_first_of(characters) != std::string_view::npos;
}

bool isLoneSign(std::string_view word) {
    return word == "+" || word == "-";
}

bool beginsWithExponent(std::string_view word) {
    return word.starts_with('e') || word.starts_with('E');
}

/// The empty word is a prefix of every word.
bool isPrefixOf(std::string_view whole, std::string_view word) {
    return whole.starts_with(upper(word));
}

bool isByte(std::string_view word) {
    const double value = valueOf(word);
    return value >= kLeastByte && value <= kMostByte;
}

TypedValue refused(std::string_view why) {
    return {State::Refused, why};
}

TypedValue judgeUnsigned(std::string_view word) {
    if (isBlank(word))
        return {State::Unfinished, {}};
    return isNumeric(word) && !hasAnyOf(word, ".+-") ? TypedValue{} : refused(kUnsignedRefusal);
}

TypedValue judgeSigned(std::string_view word) {
    if (isBlank(word) || isLoneSign(word))
        return {State::Unfinished, {}};
    return isNumeric(word) && !hasAnyOf(word, ".") ? TypedValue{} : refused(kIntegerRefusal);
}

TypedValue judgeFloating(std::string_view word) {
    if (isBlank(word) || isLoneSign(word) || word == ".")
        return {State::Unfinished, {}};
    if (isNumeric(word))
        return {};
    if (beginsWithExponent(word))
        return refused(kFloatRefusal);
    return hasAnyOf(word, "eE") ? TypedValue{State::Unfinished, {}} : refused(kFloatWordRefusal);
}

TypedValue judgeBinary(std::string_view word) {
    if (word.empty())
        return {State::Unfinished, {}};
    if (!isNumeric(word))
        return refused(kBinaryRefusal);
    return isByte(word) && !hasAnyOf(word, "+-.") ? TypedValue{} : refused(kBinaryRangeRefusal);
}

TypedValue judgeBoolean(std::string_view word) {
    const bool good =
        isNumeric(word) ? word == "0" || word == "1" : isPrefixOf("TRUE", word) || isPrefixOf("FALSE", word);
    return {good ? State::Good : State::Unfinished, {}};
}

TypedValue judgeWord(ValueForm form, std::string_view word) {
    switch (form) {
    case ValueForm::Unsigned:
        return judgeUnsigned(word);
    case ValueForm::Signed:
        return judgeSigned(word);
    case ValueForm::Floating:
        return judgeFloating(word);
    case ValueForm::Binary:
        return judgeBinary(word);
    case ValueForm::Boolean:
        return judgeBoolean(word);
    default:
        return {};
    }
}

/// Types whose values are read as whole numbers, with halves rounded to even.
struct RoundedType {
    std::string_view type;
    long long least;
    long long most;
};

constexpr std::array kRoundedTypes{
    RoundedType{"B", 0, 255},         RoundedType{"U1", 0, 255},
    RoundedType{"U2", 0, 65535},      RoundedType{"I1", -128, 127},
    RoundedType{"I2", -32768, 32767}, RoundedType{"I4", -2147483648LL, 2147483647LL},
};

/// Types that are too wide for that: truncated toward zero, and compared and printed as floating point. The
/// bounds of the two widest types are not those of 64 bits.
struct CutType {
    std::string_view type;
    double least;
    double most;
};

constexpr std::array kCutTypes{
    CutType{"U4", 0, 4294967295.0},
    CutType{"U8", 0, 18446744073709600768.0},
    CutType{"I8", -922337203685478.0, 922337203685477.0},
};

constexpr std::string_view kNothing = "0";

std::string roundedWord(const RoundedType& type, double value) {
    const auto whole = toInteger(value, type.least, type.most);
    return whole ? std::to_string(*whole) : std::string(kNothing);
}

std::string cutWord(const CutType& type, double value) {
    const double whole = std::trunc(value);
    return whole >= type.least && whole <= type.most ? printDouble(whole) : std::string(kNothing);
}

std::string floatWord(double value) {
    // A number that is in range only after rounding is still in range.
    const auto narrow = static_cast<float>(value);
    return std::isfinite(narrow) ? printFloat(narrow) : std::string(kNothing);
}

std::string booleanWord(std::string_view word) {
    if (isNumeric(word))
        return word == "0" ? "0" : "1";
    return isPrefixOf("T", word.substr(0, 1)) ? "True" : "False";
}

std::string numberWord(std::string_view type, std::string_view word) {
    const auto value = toNumber(word);
    if (!value)
        return std::string(kNothing);
    const auto isType = [type](const auto& entry) { return entry.type == type; };
    const auto rounded = std::find_if(kRoundedTypes.begin(), kRoundedTypes.end(), isType);
    if (rounded != kRoundedTypes.end())
        return roundedWord(*rounded, *value);
    const auto cut = std::find_if(kCutTypes.begin(), kCutTypes.end(), isType);
    if (cut != kCutTypes.end())
        return cutWord(*cut, *value);
    return type == "F4" ? floatWord(*value) : printDouble(*value);
}

std::string normalizedWords(std::string_view type, std::string_view text) {
    const bool boolean = valueFormOf(type) == ValueForm::Boolean;
    std::vector<std::string> words;
    for (const std::string& word : splitAtBlanks(text)) {
        if (!isBlank(word))
            words.push_back(boolean ? booleanWord(word) : numberWord(type, word));
    }
    return join(words, " ");
}

std::string withoutApostrophes(std::string_view text) {
    return replaceAll(text, "'", "");
}

std::string cleanBoolean(std::string_view word) {
    if (word == "0" || word == "1")
        return std::string(word);
    return isPrefixOf("TRUE", word) ? "True" : "False";
}

bool isClean(ValueForm form, std::string_view word) {
    if (!isNumeric(word))
        return false;
    switch (form) {
    case ValueForm::Binary:
        return isByte(word) && !hasAnyOf(word, "eE.+-");
    case ValueForm::Unsigned:
        return !hasAnyOf(word, "eE.+-");
    case ValueForm::Signed:
        return !hasAnyOf(word, "eE.");
    default:
        return true;
    }
}

std::string cleanWord(ValueForm form, std::string_view word) {
    if (form == ValueForm::Boolean)
        return cleanBoolean(word);
    return std::string(isClean(form, word) ? word : kNothing);
}

std::string cleanWords(ValueForm form, double count, std::string_view text) {
    std::string fallback(form == ValueForm::Boolean ? "False" : kNothing);
    if (isBlank(text))
        return fallback;
    std::vector<std::string> words;
    for (const std::string& word : splitAtBlanks(text)) {
        if (!word.empty() && !isLoneSign(word) && word != ".")
            words.push_back(cleanWord(form, word));
    }
    if (!words.empty())
        return join(words, " ");
    return form == ValueForm::Unsigned && count == 0 ? std::string() : fallback;
}

} // namespace

ValueForm valueFormOf(std::string_view type) {
    const auto found = std::find_if(kForms.begin(), kForms.end(),
                                    [type](const FormOfType& entry) { return entry.type == type; });
    return found == kForms.end() ? ValueForm::Unknown : found->form;
}

TypedValue judgeTypedValue(std::string_view type, std::string_view text) {
    const ValueForm form = valueFormOf(type);
    if (form == ValueForm::Quoted)
        return text == "'" ? refused(kApostropheRefusal) : TypedValue{};
    for (const std::string& word : splitAtBlanks(text)) {
        TypedValue verdict = judgeWord(form, word);
        if (verdict.state != State::Good)
            return verdict;
    }
    return {};
}

std::string normalizeItemValue(std::string_view type, int count, CountMode mode, std::string_view text) {
    const std::string upperType = upper(type);
    switch (valueFormOf(upperType)) {
    case ValueForm::None:
        return {};
    case ValueForm::Quoted:
        return withoutApostrophes(text);
    case ValueForm::Unknown:
        return std::string(kNothing);
    default:
        break;
    }
    std::string words = normalizedWords(upperType, text);
    return words.empty() && count >= 1 && mode == CountMode::Fixed ? std::string(kNothing) : words;
}

std::optional<std::string> cleanItemValue(std::string_view type, double count, std::string_view text) {
    const ValueForm form = valueFormOf(type);
    switch (form) {
    case ValueForm::None:
        return std::string();
    case ValueForm::Quoted:
        return withoutApostrophes(text);
    case ValueForm::Unknown:
        return std::nullopt;
    default:
        return cleanWords(form, count, text);
    }
}

} // namespace zb
