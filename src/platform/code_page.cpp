#include "platform/code_page.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include "platform/number.h"
#include "platform/text.h"

namespace zb {

namespace {

constexpr int kWestern = 1252;

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using ConverterPointer = std::unique_ptr<UConverter, CloseConverter>;

// Writes the replacement (the context) once for each byte without a meaning, so that lengths in bytes are
// kept.
void U_CALLCONV replaceBytes(const void* context, UConverterToUnicodeArgs* arguments, const char*,
                             std::int32_t length, UConverterCallbackReason reason, UErrorCode* status) {
    if (reason > UCNV_IRREGULAR)
        return;
    *status = U_ZERO_ERROR;
    for (std::int32_t i = 0; i < length; ++i)
        ucnv_cbToUWriteUChars(arguments, static_cast<const UChar*>(context), 1, 0, status);
}

// ICU's own substitution drops characters that are usually invisible; here every character counts.
void U_CALLCONV replaceCharacter(const void*, UConverterFromUnicodeArgs* arguments, const UChar*,
                                 std::int32_t, UChar32, UConverterCallbackReason reason, UErrorCode* status) {
    if (reason > UCNV_IRREGULAR)
        return;
    *status = U_ZERO_ERROR;
    ucnv_cbFromUWriteBytes(arguments, "?", 1, 0, status);
}

bool isStateless(const UConverter* converter) {
    switch (ucnv_getType(converter)) {
    case UCNV_SBCS:
    case UCNV_MBCS:
    case UCNV_LATIN_1:
    case UCNV_US_ASCII:
    case UCNV_UTF8:
        return true;
    default:
        return false;
    }
}

// The fast paths, and the syntax of the files, require ASCII.
bool keepsAscii(UConverter* converter) {
    for (char letter = ' '; letter <= '~'; ++letter) {
        std::array<UChar, 4> units{};
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t count = ucnv_toUChars(converter, units.data(), 4, &letter, 1, &status);
        if (U_FAILURE(status) || count != 1 || units[0] != static_cast<UChar>(letter))
            return false;
    }
    return true;
}

ConverterPointer open(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    ConverterPointer converter(ucnv_open(name.c_str(), &status));
    const bool usable = U_SUCCESS(status) && isStateless(converter.get()) && keepsAscii(converter.get());
    return usable ? std::move(converter) : nullptr;
}

ConverterPointer openNumber(int number) {
    if (number <= 0)
        return nullptr;
    if (number == 65001)
        return open("UTF-8");
    constexpr int kIsoBase = 28590;
    if (number > kIsoBase && number <= kIsoBase + 15)
        return open("ISO-8859-" + std::to_string(number - kIsoBase));
    for (const char* prefix : {"windows-", "cp", "ibm-"}) {
        if (ConverterPointer converter = open(prefix + std::to_string(number)))
            return converter;
    }
    return nullptr;
}

void check(UErrorCode status) {
    if (U_FAILURE(status))
        throw std::runtime_error("code page conversion: " + std::string(u_errorName(status)));
}

std::string utf8OfUnits(const std::u16string& units) {
    std::string text;
    text.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        const bool pair = U16_IS_LEAD(units[i]) && i + 1 < units.size() && U16_IS_TRAIL(units[i + 1]);
        appendCodePoint(
            text, static_cast<char32_t>(pair ? U16_GET_SUPPLEMENTARY(units[i], units[i + 1]) : units[i]));
        i += pair ? 1 : 0;
    }
    return text;
}

} // namespace

// Keeps the opened converter and never converts with it: each conversion runs on a clone, so no state is
// shared between threads.
class CodePage::Converter {
public:
    Converter(int number, bool known, ConverterPointer converter)
        : number_(number), known_(known), converter_(std::move(converter)) {}

    int number() const { return number_; }
    bool known() const { return known_; }

    std::string decode(std::string_view bytes, UChar replacement) const {
        ConverterPointer clone = makeClone();
        UErrorCode status = U_ZERO_ERROR;
        ucnv_setToUCallBack(clone.get(), replaceBytes, &replacement, nullptr, nullptr, &status);
        check(status);
        std::u16string units;
        std::array<UChar, 2048> buffer{};
        const char* source = bytes.data();
        const char* const sourceEnd = bytes.data() + bytes.size();
        do {
            status = U_ZERO_ERROR;
            UChar* target = buffer.data();
            ucnv_toUnicode(clone.get(), &target, buffer.data() + buffer.size(), &source, sourceEnd, nullptr,
                           true, &status);
            units.append(buffer.data(), target);
        } while (status == U_BUFFER_OVERFLOW_ERROR);
        check(status);
        return utf8OfUnits(units);
    }

    std::string encode(std::string_view utf8) const {
        ConverterPointer clone = makeClone();
        UErrorCode status = U_ZERO_ERROR;
        ucnv_setFromUCallBack(clone.get(), replaceCharacter, nullptr, nullptr, nullptr, &status);
        check(status);
        std::u16string units;
        units.reserve(utf8.size());
        for (std::size_t position = 0; position < utf8.size();) {
            const DecodedCharacter character = decodeCharacter(utf8, position);
            const auto point = static_cast<UChar32>(character.codePoint);
            if (U_IS_SUPPLEMENTARY(point)) {
                units += U16_LEAD(point);
                units += U16_TRAIL(point);
            } else {
                units += static_cast<char16_t>(point);
            }
            position += character.length;
        }
        return encodeUnits(clone.get(), units);
    }

private:
    static std::string encodeUnits(UConverter* converter, const std::u16string& units) {
        std::string bytes;
        std::array<char, 4096> buffer{};
        const UChar* source = units.data();
        const UChar* const sourceEnd = units.data() + units.size();
        UErrorCode status = U_ZERO_ERROR;
        do {
            status = U_ZERO_ERROR;
            char* target = buffer.data();
            ucnv_fromUnicode(converter, &target, buffer.data() + buffer.size(), &source, sourceEnd, nullptr,
                             true, &status);
            bytes.append(buffer.data(), target);
        } while (status == U_BUFFER_OVERFLOW_ERROR);
        check(status);
        return bytes;
    }

    ConverterPointer makeClone() const {
        UErrorCode status = U_ZERO_ERROR;
        ConverterPointer clone(ucnv_clone(converter_.get(), &status));
        check(status);
        return clone;
    }

    int number_;
    bool known_;
    ConverterPointer converter_;
};

CodePage::CodePage(int number) {
    if (ConverterPointer converter = openNumber(number)) {
        converter_ = std::make_shared<const Converter>(number, true, std::move(converter));
        return;
    }
    ConverterPointer western = openNumber(kWestern);
    if (!western)
        throw std::runtime_error("code page 1252 is missing from the installed ICU data");
    converter_ = std::make_shared<const Converter>(kWestern, false, std::move(western));
}

int CodePage::number() const {
    return converter_->number();
}

bool CodePage::known() const {
    return converter_->known();
}

std::string CodePage::toUtf8(std::string_view bytes) const {
    return isAscii(bytes) ? std::string(bytes) : converter_->decode(bytes, 0xFFFD);
}

std::string CodePage::fromUtf8(std::string_view utf8) const {
    return isAscii(utf8) ? std::string(utf8) : converter_->encode(utf8);
}

std::string CodePage::midAnsi(std::string_view text, long start1, long count) const {
    if (start1 < 1 || count <= 0)
        return {};
    const bool ascii = isAscii(text);
    const std::string encoded = ascii ? std::string() : converter_->encode(text);
    const std::string_view bytes = ascii ? text : std::string_view(encoded);
    const auto start = static_cast<std::size_t>(start1) - 1;
    if (start >= bytes.size())
        return {};
    const std::string_view cut = bytes.substr(start, static_cast<std::size_t>(count));
    return isAscii(cut) ? std::string(cut) : converter_->decode(cut, u'?');
}

std::size_t CodePage::ansiByteLength(std::string_view text) const {
    return isAscii(text) ? text.size() : converter_->encode(text).size();
}

unsigned CodePage::ansiValue(std::string_view oneCharacterUtf8) const {
    if (oneCharacterUtf8.empty())
        return 0;
    const DecodedCharacter first = decodeCharacter(oneCharacterUtf8, 0);
    unsigned value = 0;
    for (const char byte : fromUtf8(oneCharacterUtf8.substr(0, first.length)))
        value = value * 256 + static_cast<unsigned char>(byte);
    return value;
}

namespace {

int chineseCodePage(std::string_view localeName) {
    for (const char* mark : {"TW", "HK", "MO", "Hant"}) {
        if (contains(localeName, mark))
            return 950;
    }
    return 936;
}

struct LanguageCodePage {
    std::string_view languages;
    int number;
};

// Each list has a blank on both sides of each language.
constexpr std::array<LanguageCodePage, 11> kLanguages{{
    {" ko ", 949},
    {" ja ", 932},
    {" th ", 874},
    {" pl cs hu sk sl hr ro sq bs ", 1250},
    {" ru uk bg be mk sr ", 1251},
    {" el ", 1253},
    {" tr az ", 1254},
    {" he iw yi ", 1255},
    {" ar fa ur ", 1256},
    {" et lv lt ", 1257},
    {" vi ", 1258},
}};

} // namespace

int codePageFromLocale(std::string_view localeName) {
    const std::string_view language = localeName.substr(0, localeName.find_first_of("_-.@"));
    if (language == "zh")
        return chineseCodePage(localeName);
    const std::string wanted = ' ' + std::string(language) + ' ';
    const auto found =
        std::find_if(kLanguages.begin(), kLanguages.end(),
                     [&wanted](const LanguageCodePage& entry) { return contains(entry.languages, wanted); });
    return found == kLanguages.end() || isBlank(language) ? kWestern : found->number;
}

CodePage chooseCodePage(std::string_view setting, std::string_view localeName) {
    constexpr long long kLargest = 65535;
    if (const std::optional<double> number = toNumber(setting)) {
        CodePage asked(static_cast<int>(toInteger(*number, 0, kLargest).value_or(0)));
        if (asked.known())
            return asked;
    }
    return CodePage(codePageFromLocale(localeName));
}

} // namespace zb
