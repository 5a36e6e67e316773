#include "messages/secs2/items.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>

namespace zb::secs2 {

namespace {

template<typename Number>
void appendNumber(std::string& text, Number number) {
    std::array<char, 32> buffer;
    const auto [end, fault] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    text.append(buffer.data(), end);
}

/// The shortest text that reads back as the same number. The values that are no numbers have no literal in
/// SML, so their names are written.
template<typename Number>
void appendFloatText(std::string& text, Number number) {
    if (std::isnan(number))
        text += "NaN";
    else if (std::isinf(number))
        text += number < 0 ? "-Infinity" : "Infinity";
    else
        appendNumber(text, number);
}

} // namespace

std::size_t Items::count(const Item& item) {
    const std::size_t width = traitsOf(item.format).width;
    return width == 0 ? item.size : item.size / width;
}

std::uint64_t Items::bits(const Item& item, std::size_t position) const {
    const std::size_t width = traitsOf(item.format).width;
    std::uint64_t value = 0;
    for (const char byte : std::string_view(bytes_).substr(item.begin + position * width, width))
        value = value << 8U | static_cast<unsigned char>(byte);
    return value;
}

std::uint64_t Items::unsignedValue(const Item& item, std::size_t position) const {
    return bits(item, position);
}

std::int64_t Items::signedValue(const Item& item, std::size_t position) const {
    const FormatTraits& traits = traitsOf(item.format);
    const std::uint64_t value = bits(item, position);
    if (traits.kind != ValueKind::Signed)
        return static_cast<std::int64_t>(value);
    const std::size_t unused = 64 - 8 * traits.width;
    return static_cast<std::int64_t>(value << unused) >> unused;
}

double Items::floatValue(const Item& item, std::size_t position) const {
    const std::uint64_t value = bits(item, position);
    if (item.format == Format::F4)
        return static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(value)));
    return std::bit_cast<double>(value);
}

void Items::appendValue(std::string& text, const Item& item, std::size_t position) const {
    switch (traitsOf(item.format).kind) {
    case ValueKind::Boolean:
        text += unsignedValue(item, position) != 0 ? "True" : "False";
        break;
    case ValueKind::Signed:
        appendNumber(text, signedValue(item, position));
        break;
    case ValueKind::Float:
        if (item.format == Format::F4)
            appendFloatText(text, static_cast<float>(floatValue(item, position)));
        else
            appendFloatText(text, floatValue(item, position));
        break;
    default:
        appendNumber(text, unsignedValue(item, position));
        break;
    }
}

void Items::clear() {
    items_.clear();
    bytes_.clear();
    open_.clear();
}

void Items::add(Format format, std::string_view bytes) {
    if (!open_.empty())
        ++items_[open_.back()].size;
    items_.push_back({format, static_cast<std::uint32_t>(bytes.size()),
                      static_cast<std::uint32_t>(bytes_.size()),
                      static_cast<std::uint32_t>(items_.size() + 1)});
    bytes_ += bytes;
}

void Items::openList() {
    add(Format::List, {});
    open_.push_back(static_cast<std::uint32_t>(items_.size() - 1));
}

void Items::closeList() {
    items_[open_.back()].end = static_cast<std::uint32_t>(items_.size());
    open_.pop_back();
}

void Items::appendInteger(std::uint64_t value) {
    Item& item = items_.back();
    const std::size_t width = traitsOf(item.format).width;
    for (std::size_t i = width; i-- > 0;)
        bytes_ += static_cast<char>(value >> (8 * i) & 0xFFU);
    item.size += static_cast<std::uint32_t>(width);
}

void Items::appendFloat(double value) {
    if (items_.back().format == Format::F4)
        appendInteger(std::bit_cast<std::uint32_t>(static_cast<float>(value)));
    else
        appendInteger(std::bit_cast<std::uint64_t>(value));
}

bool Items::operator==(const Items& other) const {
    return std::equal(items_.begin(), items_.end(), other.items_.begin(), other.items_.end(),
                      [&](const Item& left, const Item& right) {
                          return left.format == right.format && left.size == right.size &&
                                 left.end == right.end && data(left) == other.data(right);
                      });
}

} // namespace zb::secs2
