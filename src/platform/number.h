#pragma once

#include <optional>
#include <string>
#include <string_view>

// Numbers as the fields and files write them: decimal, with a point, whatever the locale.
namespace zb {

// Whether the whole text has the shape of a number: blanks around it, a sign, digits with at most one point,
// an exponent ("e" or "E", a sign, digits). At least one digit stands before the exponent. "1e999" is a
// number by its shape, though toNumber cannot hold it.
bool isNumeric(std::string_view text);

// What the longest numeric prefix behind leading blanks reads as, 0 when there is none: "12ab" is 12, "1e"
// is 1. The result is always finite: what is too large for a double becomes the largest one of its sign, what
// is too small 0.
double valueOf(std::string_view text);

// The number that the whole text is; nothing when it is not numeric or too large for a double.
std::optional<double> toNumber(std::string_view text);

// The nearest whole number, a half going to the even neighbour.
double roundHalfEven(double value);
// The value rounded by roundHalfEven; nothing when that lies outside of least..most.
std::optional<long long> toInteger(double value, long long least, long long most);

// At most 15 significant digits, without trailing zeros: "0.5", "123456789012345". From 1E+15 on, and below
// 0.0001, in exponent form with at least two exponent digits: "1.84467440737096E+19", "1E-05". "-0" and what
// is not finite is "0".
std::string printDouble(double value);
// The same with at most 7 significant digits, so exponent form begins at 1E+07.
std::string printFloat(float value);

} // namespace zb
