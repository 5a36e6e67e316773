#ifndef ZELTO_ENCODER_H
#define ZELTO_ENCODER_H

#include "numbers.h"

#include <stdexcept>

namespace zelto {

/// A value has more or fewer characters, values or members than its definition allows.
class Misfit : public std::length_error {
public:
    using std::length_error::length_error;
};

/// Writes the fields of a message as the bytes of SECS-II items.
class Encoder {
public:
    explicit Encoder(std::string& bytes) : bytes_(bytes) {}

    void list(std::size_t members) { head(Format::L, members); }
    void end() {}

    template<typename List, typename Describe>
    void listOf(const List& members, Count count, Describe describe) {
        require(count, members.size(), Format::L);
        head(Format::L, members.size());
        for (const typename List::value_type& member : members)
            describe(member);
    }

    /// A text. Blanks fill a text that is shorter than its fixed count.
    void item(const std::string& text, Format format, Count count) {
        const std::size_t missing = count.isExact && text.size() < count.number ? count.number - text.size() : 0;
        require(count, text.size() + missing, format);
        head(format, text.size() + missing);
        bytes_.append(text).append(missing, ' ');
    }
    template<typename Number>
    void item(const Number& value, Format format, Count) {
        head(format, widthOf(format));
        appendBigEndian(bytes_, bitsOf(value), widthOf(format));
    }
    template<typename Number>
    void item(const std::vector<Number>& values, Format format, Count count) {
        require(count, values.size(), format);
        head(format, values.size() * widthOf(format));
        for (const Number value : values)
            appendBigEndian(bytes_, bitsOf(value), widthOf(format));
    }
    void item(const Any& any, Format, Count) { this->any(any); }

    /// Values of keys need no writing of their own.
    template<typename Value>
    void key(const Value&, std::string_view) {}

    void any(const Any& any) {
        const bool isList = any.format == Format::L;
        head(any.format, isList ? any.members.size() : any.data.size());
        if (!isList)
            bytes_ += any.data;
        for (const Any& member : any.members)
            this->any(member);
    }

private:
    static void require(Count count, std::size_t found, Format format) {
        if (!count.allows(found))
            throw Misfit(std::string(wordOf(format)) + " of " + std::to_string(found) + ", where the definition has " +
                         (count.isExact ? "" : "at most ") + std::to_string(count.number));
    }

    void head(Format format, std::size_t length) {
        constexpr std::size_t kLongest = 0xFFFFFF;
        if (length > kLongest)
            throw Misfit("an item is longer than a message can express");
        const std::size_t lengthBytes = length > 0xFFFF ? 3 : length > 0xFF ? 2 : 1;
        bytes_ += static_cast<char>(static_cast<std::size_t>(format) << 2U | lengthBytes);
        appendBigEndian(bytes_, length, lengthBytes);
    }

    std::string& bytes_;
};

/// The bytes of a message. Throws Misfit for a message that its definition does not allow.
template<typename Message>
std::string encode(const Message& message) {
    std::string bytes;
    Encoder encoder(bytes);
    Message::describe(message, encoder);
    return bytes;
}

} // namespace zelto

#endif
