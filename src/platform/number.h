#pragma once

#include <optional>
#include <string>
#include <string_view>

// Numbers as in the fields and files: decimal, with a point, independent of the locale.
namespace zb {

/// Whether the whole text has the form of a number: blanks around it, a sign, digits with at most one point,
/// an exponent ("e" or "E", a sign, digits). There is at least one digit before the exponent. "1e999" has the
/// form of a number, though toNumber cannot represent it.
bool isNumeric(std::string_view text);

/// The value of the longest numeric prefix after leading blanks, 0 when there is none: "12ab" is 12, "1e" is
/// 1. The result is always finite: a value too large for a double becomes the largest one of its sign, a
/// value too small 0.
double valueOf(std::string_view text);

/// The number of the whole text; nothing when it is not numeric or too large for a double.
std::optional<double> toNumber(std::string_view text);

/// The nearest whole number, with halves rounded to even.
double roundHalfEven(double value);
/// The value rounded by roundHalfEven; nothing when that is outside of least..most.
std::optional<long long> toInteger(double value, long long least, long long most);

/// At most 15 significant digits, without trailing zeros: "0.5", "123456789012345". From 1E+15 on, and below
/// 0.0001, in exponent form with at least two exponent digits: "1.84467440737096E+19", "1E-05". "-0" and
/// values that are not finite give "0".
std::string printDouble(double value);
/// The same with at most 7 significant digits, so exponent form begins at 1E+07.
std::string printFloat(float value);

} // namespace zb
