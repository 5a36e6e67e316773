#pragma once

#include <string>
#include <string_view>

// The form of a text on a line of the model's section, between other words or up to the end of the line. Line
// ends, control characters, invisible marks and invalid UTF-8 become escapes; everything else stays readable.
namespace zb {

/// Up to the end of a line: a blank at the end becomes an escape. Blanks at the start stay, so that the
/// indentation of statements is visible.
void appendFactText(std::string& line, std::string_view text);
/// As one word without a blank, "=" or quotation mark.
void appendFactWord(std::string& line, std::string_view text);
/// Between quotation marks, which are included.
void appendQuotedFact(std::string& line, std::string_view text);

/// The inverse of all of them; quotation marks around the text have been removed. An unknown escape stays
/// unchanged.
std::string factText(std::string_view escaped);

} // namespace zb
