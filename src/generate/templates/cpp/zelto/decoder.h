#ifndef ZELTO_DECODER_H
#define ZELTO_DECODER_H

#include "value.h"

#include <optional>

namespace zelto {

/// Reads the bytes of a message into its fields. After the first item that is not as defined nothing is read.
class Decoder {
public:
    explicit Decoder(std::string_view bytes) : rest_(bytes) {}

    /// Whether all was as defined, and nothing is left.
    bool isDone() const { return ok_ && rest_.empty(); }

    void list(std::size_t members) {
        const Head found = head();
        ok_ = ok_ && found.format == Format::L && found.length == members;
    }
    void end() {}

    template<typename List, typename Describe>
    void listOf(List& members, Count count, Describe describe) {
        members.clear();
        const Head found = head();
        ok_ = ok_ && found.format == Format::L && count.allows(found.length);
        for (std::size_t left = found.length; ok_ && left > 0; --left) {
            typename List::value_type member{};
            describe(member);
            members.push_back(std::move(member));
        }
    }

    void item(std::string& text, Format format, Count count) {
        const std::string_view data = take(format, count);
        if (ok_)
            text.assign(data);
    }
    template<typename Number>
    void item(Number& value, Format format, Count) {
        const std::string_view data = take(format, exactly(1));
        if (ok_)
            value = numberOf<Number>(data);
    }
    template<typename Number>
    void item(std::vector<Number>& values, Format format, Count count) {
        const std::string_view data = take(format, count);
        if (!ok_)
            return;
        values.clear();
        for (std::size_t at = 0; at < data.size(); at += widthOf(format))
            values.push_back(numberOf<Number>(data.substr(at, widthOf(format))));
    }
    void item(Any& any, Format, Count) { this->any(any); }

    /// The item before was a key: messages with another value are other messages.
    template<typename Item>
    void key(const Item& item, std::string_view expected) {
        ok_ = ok_ && Value(item).is(expected);
    }

    /// An item of any format and count.
    void any(Any& any, int depth = 0) {
        constexpr int kDeepest = 1000;
        const Head found = head();
        any.format = found.format;
        any.members.clear();
        any.data.clear();
        if (!ok_ || wordOf(found.format) == nullptr || depth > kDeepest) {
            ok_ = false;
        } else if (found.format != Format::L) {
            any.data.assign(data(found, upTo(kMost)));
        } else {
            for (std::size_t left = found.length; ok_ && left > 0; --left)
                this->any(any.members.emplace_back(), depth + 1);
        }
    }

private:
    static constexpr std::size_t kMost = 0xFFFFFF;
    struct Head {
        Format format = Format::L;
        std::size_t length = 0;
    };

    Head head() {
        if (!ok_ || rest_.empty())
            return fail();
        const auto first = static_cast<unsigned char>(rest_.front());
        const std::size_t lengthBytes = first & 3U;
        if (lengthBytes == 0 || rest_.size() <= lengthBytes)
            return fail();
        const Head found{static_cast<Format>(first >> 2U),
                         static_cast<std::size_t>(bigEndian(rest_.substr(1, lengthBytes)))};
        rest_.remove_prefix(1 + lengthBytes);
        return found;
    }
    Head fail() {
        ok_ = false;
        return {};
    }

    /// The data of the next item, which has this format.
    std::string_view take(Format format, Count count) {
        const Head found = head();
        ok_ = ok_ && found.format == format;
        return data(found, count);
    }
    std::string_view data(Head found, Count count) {
        const std::size_t width = widthOf(found.format);
        if (!ok_ || width == 0 || found.length > rest_.size() || found.length % width != 0 ||
            !count.allows(found.length / width)) {
            ok_ = false;
            return {};
        }
        const std::string_view data = rest_.substr(0, found.length);
        rest_.remove_prefix(found.length);
        return data;
    }

    std::string_view rest_;
    bool ok_ = true;
};

/// The message in these bytes; nothing when they are not as the definition says.
template<typename Message>
std::optional<Message> decode(std::string_view bytes) {
    std::optional<Message> message(std::in_place);
    Decoder decoder(bytes);
    Message::describe(*message, decoder);
    if (!decoder.isDone())
        message.reset();
    return message;
}

} // namespace zelto

#endif
