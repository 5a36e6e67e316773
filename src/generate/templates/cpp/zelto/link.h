#ifndef ZELTO_LINK_H
#define ZELTO_LINK_H

#include "message.h"
#include "sequences.h"
#include "transaction.h"
#include "transport.h"

#include <chrono>
#include <map>

namespace zelto {

enum class Side { Host, Equipment };

/// What a plug-in made of a message.
enum class Finding {
    Taken,
    NoTransaction,   ///< the message is defined, but no transaction takes it
    UnknownStream,
    UnknownFunction,
    IllegalData      ///< no definition of its stream and function has these items
};

/// One side of a link: what all plug-ins have in common. Handlers run inside `Transport::receive`.
class Link {
public:
    using Clock = std::chrono::steady_clock;

    Link(Transport& transport, Side side, const std::vector<Sequence>& sequences)
        : transport_(transport), side_(side), sequences_(sequences) {
        transport_.receive = [this](const Header& header, std::string_view body) { receive(header, body); };
    }
    virtual ~Link() { transport_.receive = nullptr; }
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    void setDeviceId(std::uint16_t deviceId) { deviceId_ = deviceId; }
    /// The time that the other side has for a reply; 45 seconds at first.
    void setReplyTimeout(Clock::duration timeout) { replyTimeout_ = timeout; }
    /// Ends the transactions whose reply is overdue. To be called every second or so.
    void checkTimeouts(Clock::time_point now = Clock::now()) {
        for (auto open = open_.begin(); open != open_.end();) {
            if (now - open->second.since < replyTimeout_) {
                ++open;
                continue;
            }
            const Header primary = open->second.primary;
            open = open_.erase(open);
            sendError(9, primary);
            onTimeout(primary);
        }
    }
    /// The primary messages that wait for their reply.
    std::size_t openTransactions() const { return open_.size(); }
    const SequenceTracker& sequences() const { return sequences_; }

protected:
    /// Decodes a message and calls its handler.
    virtual Finding dispatch(const Header& header, std::string_view body) = 0;
    /// Answers a primary message that the driver answers by itself; false when there is no such answer.
    virtual bool answer(const Header& primary, std::string_view message) = 0;

    /// @name Handlers
    /// @{
    virtual void onReceived(const Report&) {}
    /// A transaction does not follow the sequences.
    virtual void onDeviation(const Deviation&) {}
    /// A message that no transaction takes. It is answered already where SECS-II has an answer for it.
    virtual void onUnknown(const Header&, std::string_view /*body*/, Finding) {}
    /// The other side ended a transaction by function 0.
    virtual void onAborted(const Header& /*primary*/) {}
    virtual void onTimeout(const Header& /*primary*/) {}
    /// A message of stream 9. `primary` is the message that it complains of.
    virtual void onError(const Header& /*error*/, const std::optional<Header>& /*primary*/) {}
    /// A reply without its primary message.
    virtual void onStrayReply(const Header&) {}
    /// @}

    /// Sends a primary message; returns its system bytes.
    std::uint32_t sendPrimary(const MessageHead& head, const std::string& body, std::string_view transaction) {
        const Header header{deviceId_, head.stream, head.function, head.wait, nextSystem_++};
        if (header.wait)
            open_[header.system] = {header, Clock::now()};
        track(transaction);
        transport_.send(header, body);
        return header.system;
    }
    /// Sends the reply to a primary message.
    void sendReply(const Header& primary, const MessageHead& head, const std::string& body,
                   std::string_view transaction) {
        const Header header{primary.session, head.stream, head.function, false, primary.system};
        if (current_ && current_->system == primary.system)
            isAnswered_ = true;
        track(transaction);
        transport_.send(header, body);
    }
    void track(std::string_view transaction) {
        if (transaction.empty())
            return;
        for (const Deviation& deviation : sequences_.take(transaction))
            onDeviation(deviation);
    }
    void setAnswerable(std::string_view message) { answerable_ = message; }

private:
    struct Open {
        Header primary;
        Clock::time_point since;
    };

    void receive(const Header& header, std::string_view body) {
        if (header.session != deviceId_)
            return refuse(header, body, Finding::UnknownStream, 1);
        if (header.stream == 9)
            takeError(header, body);
        else if (header.function == 0)
            takeAbort(header);
        else if (!header.isPrimary() && open_.erase(header.system) == 0)
            onStrayReply(header);
        current_ = header;
        isAnswered_ = false;
        answerable_ = {};
        const Finding finding = dispatch(header, body);
        if (finding == Finding::Taken || finding == Finding::NoTransaction)
            answerByItself(header);
        if (finding != Finding::Taken && header.stream != 9 && header.function != 0)
            refuse(header, body, finding, functionFor(finding));
        current_.reset();
    }

    void answerByItself(const Header& header) {
        if (header.isPrimary() && header.wait && !isAnswered_ && !answerable_.empty())
            isAnswered_ = answer(header, answerable_);
    }

    static int functionFor(Finding finding) {
        switch (finding) {
        case Finding::UnknownStream: return 3;
        case Finding::UnknownFunction: return 5;
        case Finding::IllegalData: return 7;
        default: return 0;
        }
    }

    /// An equipment answers by stream 9, a host by function 0.
    void refuse(const Header& header, std::string_view body, Finding finding, int function) {
        if (side_ == Side::Equipment && function != 0)
            sendError(function, header);
        else if (side_ == Side::Host && function != 0 && header.isPrimary() && header.wait)
            transport_.send(header.abort(), {});
        onUnknown(header, body, finding);
    }

    void sendError(int function, const Header& about) {
        if (side_ != Side::Equipment)
            return;
        std::string body{'\x21', '\x0A'};
        body += about.bytes();
        transport_.send({deviceId_, 9, static_cast<std::uint8_t>(function), false, nextSystem_++}, body);
    }

    void takeError(const Header& header, std::string_view body) {
        constexpr std::size_t kItemHead = 2;
        std::optional<Header> primary;
        if (body.starts_with("\x21\x0A"))
            primary = Header::fromBytes(body.substr(kItemHead));
        if (primary)
            open_.erase(primary->system);
        onError(header, primary);
    }

    void takeAbort(const Header& header) {
        const auto open = open_.find(header.system);
        if (open == open_.end())
            return onStrayReply(header);
        const Header primary = open->second.primary;
        open_.erase(open);
        onAborted(primary);
    }

    Transport& transport_;
    Side side_;
    SequenceTracker sequences_;
    std::uint16_t deviceId_ = 0;
    std::uint32_t nextSystem_ = 1;
    Clock::duration replyTimeout_ = std::chrono::seconds(45);
    std::map<std::uint32_t, Open> open_;
    std::optional<Header> current_; ///< the message whose handler runs
    std::string_view answerable_;   ///< its name, when the driver answers it by itself
    bool isAnswered_ = false;
};

} // namespace zelto

#endif
