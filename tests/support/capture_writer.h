#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace zb::test {

/// Writes captures of TCP connections, packet by packet.
class CaptureWriter {
public:
    enum class Form { Pcap, Pcapng };
    enum class Network { V4, V6 };

    /// A connection that its client opened.
    struct Link {
        std::uint16_t clientPort = 40000;
        std::uint16_t serverPort = 5000;
        std::array<std::uint32_t, 2> next{1000, 9000}; ///< sequence numbers of client and server
    };

    explicit CaptureWriter(Form form = Form::Pcap, Network network = Network::V4);

    /// Adds the three packets that open a connection.
    Link open(std::uint16_t clientPort, std::uint16_t serverPort);
    /// A packet with data, not yet in the capture; end 0 is the client.
    std::string packet(Link& link, int from, std::string_view data) {
        return packet(link, from, data, kAcknowledges);
    }
    void add(std::string_view packet);
    /// Makes a packet and adds it.
    void send(Link& link, int from, std::string_view data) { add(packet(link, from, data)); }
    /// Adds the packets that close a connection.
    void close(Link& link);

    /// The clock of the next packet, nanoseconds since 1970.
    void setTime(std::int64_t nanoseconds) { time_ = nanoseconds; }
    std::int64_t time() const { return time_; }

    const std::string& bytes() const { return bytes_; }
    /// Forgets the bytes that were written so far, for long captures that are written in parts.
    void forget() { bytes_.clear(); }

private:
    static constexpr unsigned kEnds = 0x01, kStarts = 0x02, kAcknowledges = 0x10;
    std::string packet(Link& link, int from, std::string_view data, unsigned flags);
    std::string internetHeader(int from, std::size_t length) const;

    Form form_;
    Network network_;
    std::int64_t time_ = 1'774'080'000'000'000'000;
    std::string bytes_;
};

} // namespace zb::test
