#ifndef ZELTO_SML_H
#define ZELTO_SML_H

#include "numbers.h"

namespace zelto {

/// Writes the fields of a message as SML.
class SmlWriter {
public:
    explicit SmlWriter(std::string& text) : text_(text) {}

    void list(std::size_t members) {
        line("<L [").append(std::to_string(members)).append("]\n");
        ++depth_;
    }
    void end() {
        --depth_;
        line(">\n");
    }

    template<typename List, typename Describe>
    void listOf(const List& members, Count, Describe describe) {
        list(members.size());
        for (const typename List::value_type& member : members)
            describe(member);
        end();
    }

    void item(const std::string& value, Format format, Count) { quoted(format, value); }
    template<typename Number>
    void item(const Number& value, Format format, Count) {
        open(format);
        number(value);
        text_ += ">\n";
    }
    template<typename Number>
    void item(const std::vector<Number>& values, Format format, Count) {
        open(format);
        for (const Number value : values)
            number(value);
        text_ += ">\n";
    }
    void item(const Any& any, Format, Count) { this->any(any); }

    /// Values of keys need no writing of their own.
    template<typename Value>
    void key(const Value&, std::string_view) {}

    void any(const Any& any) {
        if (any.format == Format::L) {
            list(any.members.size());
            for (const Any& member : any.members)
                this->any(member);
            end();
        } else if (any.format == Format::A || any.format == Format::J || any.format == Format::C2) {
            quoted(any.format, any.data);
        } else {
            open(any.format);
            forEachNumber(any.format, any.data, [this](auto value) { number(value); });
            text_ += ">\n";
        }
    }

private:
    std::string& line(const char* words) { return text_.append(2 * depth_, ' ').append(words); }
    void open(Format format) { line("<").append(wordOf(format)); }

    template<typename Number>
    void number(Number value) {
        text_ += ' ';
        appendNumber(text_, value);
    }

    /// Printable characters in quotation marks, all others as character codes.
    void quoted(Format format, std::string_view characters) {
        open(format);
        bool isOpen = false;
        for (const char character : characters) {
            const auto code = static_cast<unsigned char>(character);
            const bool printable = code >= 0x20 && code < 0x7F && character != '"';
            if (printable != isOpen)
                text_ += isOpen ? "\"" : " \"";
            isOpen = printable;
            if (printable)
                text_ += character;
            else
                text_.append(" ").append(std::to_string(code));
        }
        text_ += isOpen ? "\">\n" : characters.empty() ? " \"\">\n" : ">\n";
    }

    std::string& text_;
    std::size_t depth_ = 0;
};

/// The items of a message as SML, each on a line of its own.
template<typename Message>
std::string toSml(const Message& message) {
    std::string text;
    SmlWriter writer(text);
    Message::describe(message, writer);
    return text;
}

} // namespace zelto

#endif
