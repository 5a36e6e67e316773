#ifndef ZELTO_TRANSPORT_H
#define ZELTO_TRANSPORT_H

#include "header.h"

#include <deque>
#include <functional>

namespace zelto {

/// The way of messages to the other side. An HSMS library fills it in some ten lines: `send` gives the library
/// the header and the body, and whatever the library receives is passed to `receive`.
class Transport {
public:
    virtual ~Transport() = default;
    virtual void send(const Header& header, const std::string& body) = 0;

    /// Called for each message that arrives.
    std::function<void(const Header&, std::string_view body)> receive;
};

/// Two transports that are connected to each other, for tests and for work without a link. Messages wait until
/// `deliver` is called.
class Loopback {
public:
    Transport& host() { return host_; }
    Transport& equipment() { return equipment_; }

    /// Delivers all messages, including those that are sent meanwhile. Returns their number.
    std::size_t deliver() {
        std::size_t count = 0;
        for (; !messages_.empty(); ++count) {
            const Message message = std::move(messages_.front());
            messages_.pop_front();
            if (message.to->receive)
                message.to->receive(message.header, message.body);
        }
        return count;
    }

    /// Called for each message that is sent.
    std::function<void(bool toHost, const Header&, std::string_view body)> onSend;

private:
    struct Message {
        Transport* to;
        Header header;
        std::string body;
    };
    class End final : public Transport {
    public:
        explicit End(Loopback& loopback) : loopback_(loopback) {}
        void send(const Header& header, const std::string& body) override { loopback_.take(*this, header, body); }

    private:
        Loopback& loopback_;
    };

    void take(const End& from, const Header& header, const std::string& body) {
        const bool toHost = &from == &equipment_;
        if (onSend)
            onSend(toHost, header, body);
        messages_.push_back({toHost ? &host_ : &equipment_, header, body});
    }

    End host_{*this};
    End equipment_{*this};
    std::deque<Message> messages_;
};

} // namespace zelto

#endif
