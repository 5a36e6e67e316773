#ifndef ZELTO_VALUE_H
#define ZELTO_VALUE_H

#include "words.h"

#include <variant>

namespace zelto {

/// The value of a data item while it is compared or becomes a transaction item. It may view into the message,
/// and must not outlive it.
class Value {
public:
    /// The message has no such item.
    Value() = default;
    explicit Value(const std::string& text) : content_(std::string_view(text)) {}
    explicit Value(const Any& any) { takeAny(any); }
    template<typename Number>
    explicit Value(const std::vector<Number>& values) : content_(Numbers{}) {
        for (const Number value : values)
            std::get<Numbers>(content_).push_back(number(value));
    }
    template<typename Number>
        requires std::is_arithmetic_v<Number>
    explicit Value(Number value) : content_(number(value)) {}
    /// A list, which has no value of its own.
    static Value ofList() {
        Value value;
        value.content_ = List();
        return value;
    }

    bool isMissing() const { return std::holds_alternative<std::monostate>(content_); }

    /// Characters, or numbers separated by blanks.
    std::string text() const {
        std::string text;
        if (const auto* view = std::get_if<std::string_view>(&content_))
            text = *view;
        else if (const auto* single = std::get_if<Scalar>(&content_))
            append(text, *single);
        else if (const auto* numbers = std::get_if<Numbers>(&content_))
            for (const Scalar& each : *numbers)
                append(text, each);
        return text;
    }

    /// Whether the item is in the message and has this value. Numbers are compared as numbers, one by one; F4
    /// with the precision of F4; truth values without regard to case.
    bool is(std::string_view other) const {
        if (const auto* view = std::get_if<std::string_view>(&content_))
            return *view == other;
        if (const auto* single = std::get_if<Scalar>(&content_))
            return isWord(*single, takeWord(other)) && takeWord(other).empty();
        const auto* numbers = std::get_if<Numbers>(&content_);
        if (numbers == nullptr || numbers->empty())
            return false;
        for (const Scalar& each : *numbers) {
            if (!isWord(each, takeWord(other)))
                return false;
        }
        return takeWord(other).empty();
    }

private:
    struct List {};
    using Scalar = std::variant<bool, std::int64_t, std::uint64_t, float, double>;
    using Numbers = std::vector<Scalar>;

    template<typename Number>
    static Scalar number(Number value) {
        if constexpr (std::is_same_v<Number, bool> || std::is_floating_point_v<Number>)
            return value;
        else if constexpr (std::is_signed_v<Number>)
            return static_cast<std::int64_t>(value);
        else
            return static_cast<std::uint64_t>(value);
    }
    void takeAny(const Any& any) {
        if (any.format == Format::L) {
            content_ = List();
        } else if (any.format == Format::A || any.format == Format::J || any.format == Format::C2) {
            content_ = std::string_view(any.data);
        } else {
            Numbers numbers;
            forEachNumber(any.format, any.data, [&](auto value) { numbers.push_back(number(value)); });
            content_ = std::move(numbers);
        }
    }
    static void append(std::string& text, const Scalar& scalar) {
        if (!text.empty())
            text += ' ';
        std::visit([&text](auto value) { appendNumber(text, value); }, scalar);
    }
    static bool isWord(const Scalar& scalar, std::string_view word) {
        return std::visit([word](auto value) { return equalsWord(value, word); }, scalar);
    }

    std::variant<std::monostate, List, std::string_view, Scalar, Numbers> content_;
};

/// The member with this index, from 1; null when the list has no such member.
template<typename Member>
const Member* at(const std::vector<Member>& list, std::size_t index) {
    return index >= 1 && index <= list.size() ? &list[index - 1] : nullptr;
}

/// The value of the member with this index, from 1.
template<typename Member>
Value valueAt(const std::vector<Member>& list, std::size_t index) {
    if (index < 1 || index > list.size())
        return {};
    return Value(static_cast<const Member&>(list[index - 1]));
}
inline Value valueAt(const std::vector<bool>& list, std::size_t index) {
    if (index < 1 || index > list.size())
        return {};
    return Value(static_cast<bool>(list[index - 1]));
}

} // namespace zelto

#endif
