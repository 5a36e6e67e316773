#include "platform/number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/text.h"

namespace zb {

namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isSign(char character) {
    return character == '+' || character == '-';
}

std::size_t skipDigits(std::string_view text, std::size_t position) {
    while (position < text.size() && isDigit(text[position]))
        ++position;
    return position;
}

// The ends of the parts of the longest numeric prefix. `end` is 0 when there is no number.
struct NumberShape {
    std::size_t digitsStart = 0;
    std::size_t wholeEnd = 0;
    std::size_t mantissaEnd = 0;
    std::size_t end = 0;
};

NumberShape scan(std::string_view text) {
    NumberShape shape;
    shape.digitsStart = !text.empty() && isSign(text.front()) ? 1 : 0;
    shape.wholeEnd = skipDigits(text, shape.digitsStart);
    shape.mantissaEnd = shape.wholeEnd;
    std::size_t digits = shape.wholeEnd - shape.digitsStart;
    if (shape.wholeEnd < text.size() && text[shape.wholeEnd] == '.') {
        shape.mantissaEnd = skipDigits(text, shape.wholeEnd + 1);
        digits += shape.mantissaEnd - shape.wholeEnd - 1;
    }
    if (digits == 0)
        return shape;
    shape.end = shape.mantissaEnd;
    std::size_t exponent = shape.mantissaEnd;
    if (exponent < text.size() && (text[exponent] == 'e' || text[exponent] == 'E')) {
        ++exponent;
        if (exponent < text.size() && isSign(text[exponent]))
            ++exponent;
        const std::size_t exponentEnd = skipDigits(text, exponent);
        if (exponentEnd > exponent)
            shape.end = exponentEnd;
    }
    return shape;
}

// Whether a number outside the range of a double is too large, and not too small: by the position of its
// first significant digit.
bool isTooLarge(std::string_view text, const NumberShape& shape) {
    constexpr long long kBeyondAll = 1'000'000'000'000'000;
    long long exponent = 0;
    if (shape.end > shape.mantissaEnd) {
        std::size_t start = shape.mantissaEnd + 1;
        const bool negative = text[start] == '-';
        start += isSign(text[start]) ? 1 : 0;
        const auto [last, error] = std::from_chars(text.data() + start, text.data() + shape.end, exponent);
        if (error != std::errc() || exponent > kBeyondAll)
            exponent = kBeyondAll;
        exponent = negative ? -exponent : exponent;
    }
    const std::size_t first = text.find_first_of("123456789", shape.digitsStart);
    const auto wholeEnd = static_cast<long long>(shape.wholeEnd);
    return wholeEnd - static_cast<long long>(first) + exponent > 0;
}

struct ReadNumber {
    double value = 0;
    bool tooLarge = false;
};

ReadNumber read(std::string_view text, const NumberShape& shape) {
    const bool negative = text.front() == '-';
    const std::string_view mantissa = text.substr(shape.digitsStart, shape.mantissaEnd - shape.digitsStart);
    if (mantissa.find_first_of("123456789") == std::string_view::npos)
        return {};
    ReadNumber number;
    const auto [last, error] =
        std::from_chars(text.data() + shape.digitsStart, text.data() + shape.end, number.value);
    if (error == std::errc::result_out_of_range) {
        number.tooLarge = isTooLarge(text, shape);
        number.value = number.tooLarge ? std::numeric_limits<double>::max() : 0.0;
    }
    if (negative && number.value != 0)
        number.value = -number.value;
    return number;
}

// The value of nothing but digits, as most numbers are; nothing for any other text, and for more digits than
// a double holds.
std::optional<double> plainValue(std::string_view text) {
    constexpr std::size_t kMostDigits = 15;
    if (text.empty() || text.size() > kMostDigits)
        return std::nullopt;
    long long value = 0;
    for (const char character : text) {
        if (!isDigit(character))
            return std::nullopt;
        value = value * 10 + (character - '0');
    }
    return static_cast<double>(value);
}

std::string decimalForm(std::string_view digits, int exponent) {
    if (exponent < 0)
        return "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0').append(digits);
    const std::size_t wholeDigits = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= wholeDigits)
        return std::string(digits).append(wholeDigits - digits.size(), '0');
    return std::string(digits.substr(0, wholeDigits)).append(".").append(digits.substr(wholeDigits));
}

std::string exponentForm(std::string_view digits, int exponent) {
    std::string form(digits.substr(0, 1));
    if (digits.size() > 1)
        form.append(".").append(digits.substr(1));
    form += exponent < 0 ? "E-" : "E+";
    const std::string magnitude = std::to_string(std::abs(exponent));
    return form.append(magnitude.size() < 2 ? "0" : "").append(magnitude);
}

template<typename Number>
std::string print(Number value, int significantDigits) {
    constexpr int kLeastPlainExponent = -4;
    if (!std::isfinite(value) || value == 0)
        return "0";
    std::array<char, 64> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                       std::chars_format::scientific, significantDigits - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    const std::size_t mark = text.find('e');
    std::string digits(text.substr(0, mark));
    std::erase(digits, '.');
    digits.erase(digits.find_last_not_of('0') + 1);
    const int size = std::stoi(std::string(text.substr(mark + 1)));
    const bool plain = size >= kLeastPlainExponent && size < significantDigits;
    const std::string sign = value < 0 ? "-" : "";
    return sign + (plain ? decimalForm(digits, size) : exponentForm(digits, size));
}

} // namespace

bool isNumeric(std::string_view text) {
    if (plainValue(text))
        return true;
    const std::string_view number = trimmed(text);
    const std::size_t end = scan(number).end;
    return end > 0 && end == number.size();
}

double valueOf(std::string_view text) {
    if (const std::optional<double> plain = plainValue(text))
        return *plain;
    const std::string_view number = trimmed(text);
    const NumberShape shape = scan(number);
    return shape.end == 0 ? 0.0 : read(number, shape).value;
}

std::optional<double> toNumber(std::string_view text) {
    const std::string_view trimmedText = trimmed(text);
    const NumberShape shape = scan(trimmedText);
    if (shape.end == 0 || shape.end != trimmedText.size())
        return std::nullopt;
    const ReadNumber number = read(trimmedText, shape);
    return number.tooLarge ? std::nullopt : std::optional(number.value);
}

double roundHalfEven(double value) {
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction < 0.5 || (fraction == 0.5 && std::fmod(below, 2.0) == 0.0))
        return below;
    return std::ceil(value);
}

std::optional<long long> toInteger(double value, long long least, long long most) {
    constexpr double kTwoTo63 = 9223372036854775808.0;
    const double rounded = roundHalfEven(value);
    if (!(rounded >= -kTwoTo63 && rounded < kTwoTo63))
        return std::nullopt;
    const auto whole = static_cast<long long>(rounded);
    return whole < least || whole > most ? std::nullopt : std::optional(whole);
}

std::string printDouble(double value) {
    return print(value, 15);
}

std::string printFloat(float value) {
    return print(value, 7);
}

} // namespace zb
