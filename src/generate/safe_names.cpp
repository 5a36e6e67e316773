#include "generate/safe_names.h"

#include <algorithm>

namespace zb::generate {

namespace {

// Well below what file systems allow, with room for a number and the ending.
constexpr std::size_t kLongest = 100;

bool isUpper(char c) {
    return c >= 'A' && c <= 'Z';
}
bool isLower(char c) {
    return c >= 'a' && c <= 'z';
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
char toUpper(char c) {
    return isLower(c) ? static_cast<char>(c - 'a' + 'A') : c;
}
char toLower(char c) {
    return isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Appends a word with its first letter as a capital. "SVID" becomes "Svid"; "OnLine" and "S1F3" stay, the
/// latter since capitals that stand alone are no word.
void appendWord(std::string& name, std::string_view word) {
    const bool isShouted = std::none_of(word.begin(), word.end(), isLower) &&
                           std::adjacent_find(word.begin(), word.end(), [](char a, char b) {
                               return isUpper(a) && isUpper(b);
                           }) != word.end();
    name += toUpper(word.front());
    for (const char character : word.substr(1))
        name += isShouted ? toLower(character) : character;
}

} // namespace

std::string lowered(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), toLower);
    return name;
}

std::string typeName(std::string_view text, std::string_view fallback) {
    std::string name;
    std::size_t at = 0;
    while (at < text.size()) {
        std::size_t end = at;
        while (end < text.size() && (isUpper(text[end]) || isLower(text[end]) || isDigit(text[end])))
            ++end;
        if (end > at)
            appendWord(name, text.substr(at, end - at));
        at = end + 1;
    }
    if (name.empty() || isDigit(name.front()))
        name.insert(0, fallback);
    name.resize(std::min(name.size(), kLongest));
    return name;
}

std::string fieldName(std::string_view text, std::string_view fallback) {
    std::string name = typeName(text, fallback);
    name.front() = toLower(name.front());
    return name;
}

std::string SafeNames::take(const std::string& name) {
    constexpr std::size_t kFirst = 2;
    std::string candidate = name;
    std::size_t& number = next_.try_emplace(name, kFirst).first->second;
    while (!isFree(candidate))
        candidate = name + std::to_string(number++);
    reserve(candidate);
    return candidate;
}

bool SafeNames::isFree(const std::string& name) const {
    const std::string small = lowered(name);
    return !reserved_->contains(name) && !taken_.contains(small) &&
           (around_ == nullptr || !around_->taken_.contains(small));
}

void SafeNames::reserve(std::string_view name) {
    taken_.insert(lowered(std::string(name)));
}

} // namespace zb::generate
