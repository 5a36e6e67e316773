#include "rehearsal/packet_reader.h"

#include "rehearsal/connection.h"
#include "rehearsal/fragment_joiner.h"

#include <array>
#include <list>
#include <map>
#include <tins/ethernetII.h>
#include <tins/exceptions.h>
#include <tins/ip.h>
#include <tins/ip_reassembler.h>
#include <tins/ipv6.h>
#include <tins/rawpdu.h>
#include <tins/sll.h>
#include <tins/tcp.h>

namespace zb::rehearsal {

namespace {

constexpr int kNullLink = 0;
constexpr int kRawLink = 12;
constexpr int kOtherRawLink = 101;
constexpr int kLoopLink = 108;
constexpr int kCookedLink = 113;
constexpr int kIpv4Link = 228;
constexpr int kIpv6Link = 229;
constexpr int kCookedLink2 = 276;
constexpr std::array kLinks = {kNullLink,   kEthernetLink, kRawLink,  kOtherRawLink, kLoopLink,
                               kCookedLink, kIpv4Link,     kIpv6Link, kCookedLink2};

constexpr unsigned kTcpProtocol = 6;
constexpr std::size_t kLoopHeader = 4;
constexpr std::size_t kCookedHeader2 = 20;
constexpr std::size_t kMostConnections = 4096;
constexpr std::size_t kMostFragments = 4096;

using PduPointer = std::unique_ptr<Tins::PDU>;

PduPointer internetPacket(std::string_view bytes) {
    if (bytes.empty())
        return nullptr;
    const auto* const data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const auto size = static_cast<std::uint32_t>(bytes.size());
    switch (data[0] >> 4U) {
    case 4:
        return std::make_unique<Tins::IP>(data, size);
    case 6:
        return std::make_unique<Tins::IPv6>(data, size);
    default:
        return nullptr;
    }
}

/// The packet without a link header that the library does not know.
std::string_view knownPart(int linkType, std::string_view bytes) {
    switch (linkType) {
    case kCookedLink2:
        return bytes.substr(std::min(bytes.size(), kCookedHeader2));
    case kNullLink:
    case kLoopLink:
        return bytes.substr(std::min(bytes.size(), kLoopHeader));
    default:
        return bytes;
    }
}

PduPointer parsePacket(int linkType, std::string_view bytes) {
    const auto* const data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const auto size = static_cast<std::uint32_t>(bytes.size());
    switch (linkType) {
    case kEthernetLink:
        return std::make_unique<Tins::EthernetII>(data, size);
    case kCookedLink:
        return std::make_unique<Tins::SLL>(data, size);
    default:
        return internetPacket(bytes);
    }
}

/// The fragment header of an IPv6 packet and what comes before it.
struct FragmentHeader {
    std::size_t begin = 0; ///< in the IPv6 packet
    std::size_t offset = 0;
    bool isLast = false;
    std::uint32_t identification = 0;
};

std::optional<FragmentHeader> fragmentHeaderOf(const Tins::IPv6& packet) {
    constexpr std::size_t kInternetHeader = 40;
    constexpr std::size_t kTypeAndLength = 2;
    constexpr std::size_t kFragmentData = 6;
    FragmentHeader found{kInternetHeader};
    for (const Tins::IPv6::ext_header& header : packet.headers()) {
        if (header.option() != Tins::IPv6::FRAGMENT) {
            found.begin += header.data_size() + kTypeAndLength;
            continue;
        }
        if (header.data_size() != kFragmentData)
            return std::nullopt;
        const std::string data(header.data_ptr(), header.data_ptr() + kFragmentData);
        const std::uint32_t place = secs2::bigEndian32(data) >> 16U;
        found.offset = place & 0xFFF8U;
        found.isLast = (place & 1U) == 0;
        found.identification = secs2::bigEndian32(std::string_view(data).substr(2));
        return found;
    }
    return std::nullopt;
}

/// The address and port of one end.
struct Endpoint {
    std::string address;
    int port = 0;
    auto operator<=>(const Endpoint&) const = default; // NOLINT(modernize-use-nullptr): a false finding
};

template<typename Address>
Endpoint endpointOf(const Address& address, int port) {
    return {std::string(address.begin(), address.end()), port};
}
Endpoint endpointOf(const Tins::IPv4Address& address, int port) {
    return {std::to_string(static_cast<std::uint32_t>(address)), port};
}

Segment segmentOf(const Tins::TCP& tcp) {
    Segment segment;
    segment.sequence = tcp.seq();
    segment.acknowledged = tcp.ack_seq();
    segment.hasAcknowledgement = tcp.get_flag(Tins::TCP::ACK) != 0;
    segment.starts = tcp.get_flag(Tins::TCP::SYN) != 0;
    segment.ends = tcp.get_flag(Tins::TCP::FIN) != 0 || tcp.get_flag(Tins::TCP::RST) != 0;
    if (const auto* const raw = tcp.find_pdu<Tins::RawPDU>())
        segment.data = raw->payload();
    return segment;
}

} // namespace

class PacketReader::Follower {
public:
    explicit Follower(const RecordingOptions& options) : options_(options) {}

    void add(int linkType, std::string_view bytes, const std::optional<RecordedTime>& time,
             std::size_t number) {
        try {
            const std::string_view known = knownPart(linkType, bytes);
            const PduPointer packet = parsePacket(linkType, known);
            if (packet && isWhole(*packet) && joinFragments(*packet, known))
                addPacket(*packet, time, number);
        } catch (const Tins::exception_base&) {
            // Other traffic than that of the link, or a packet that was cut: its bytes are missed later.
        }
    }

    void finish() {
        for (auto& [key, entry] : connections_)
            entry.connection.finish();
    }

    PacketResults results;

private:
    using Key = std::pair<Endpoint, Endpoint>;
    struct Entry {
        Connection connection;
        std::list<Key>::iterator age;
    };

    bool isWhole(Tins::PDU& packet) {
        if (reassembler_.process(packet) != Tins::IPv4Reassembler::FRAGMENTED)
            return true;
        if (++fragments_ > kMostFragments) {
            reassembler_.clear_streams();
            fragments_ = 0;
        }
        return false;
    }

    /// Puts the segment that several IPv6 packets carried into the last of them; false when some are missing
    /// yet. The library joins those of IPv4 only.
    bool joinFragments(Tins::PDU& packet, std::string_view bytes) {
        auto* const internet = packet.find_pdu<Tins::IPv6>();
        const auto header = internet == nullptr ? std::nullopt : fragmentHeaderOf(*internet);
        if (!header)
            return true;
        std::size_t begin = header->begin;
        for (const Tins::PDU* outer = &packet; outer != internet; outer = outer->inner_pdu())
            begin += outer->header_size();
        const auto* const piece = internet->find_pdu<Tins::RawPDU>();
        const bool isTcp = begin < bytes.size() && static_cast<unsigned char>(bytes[begin]) == kTcpProtocol;
        if (piece == nullptr || !isTcp)
            return false;
        const auto& data = piece->payload();
        const auto whole = fragments6_.add(
            {internet->src_addr().to_string(), internet->dst_addr().to_string(), header->identification},
            {header->offset, header->isLast, {reinterpret_cast<const char*>(data.data()), data.size()}});
        if (!whole)
            return false;
        internet->inner_pdu(Tins::TCP(reinterpret_cast<const std::uint8_t*>(whole->data()),
                                      static_cast<std::uint32_t>(whole->size())));
        return true;
    }

    void addPacket(const Tins::PDU& packet, const std::optional<RecordedTime>& time, std::size_t number) {
        const auto* const tcp = packet.find_pdu<Tins::TCP>();
        if (tcp == nullptr)
            return;
        Segment segment = segmentOf(*tcp);
        segment.time = time;
        segment.packet = number;
        if (const auto* const ip = packet.find_pdu<Tins::IP>())
            addSegment(endpointOf(ip->src_addr(), tcp->sport()), endpointOf(ip->dst_addr(), tcp->dport()),
                       std::move(segment));
        else if (const auto* const ipv6 = packet.find_pdu<Tins::IPv6>())
            addSegment(endpointOf(ipv6->src_addr(), tcp->sport()), endpointOf(ipv6->dst_addr(), tcp->dport()),
                       std::move(segment));
    }

    void addSegment(Endpoint from, Endpoint to, Segment segment) {
        if (options_.port && from.port != *options_.port && to.port != *options_.port)
            return;
        const int end = from < to ? 0 : 1;
        Key key = end == 0 ? Key{std::move(from), std::move(to)} : Key{std::move(to), std::move(from)};
        auto found = connections_.find(key);
        if (found != connections_.end() && found->second.connection.isRestartedBy(end, segment)) {
            found->second.connection.finish();
            drop(found);
            found = connections_.end();
        }
        if (found == connections_.end())
            found = open(key, end, segment);
        found->second.connection.add(end, std::move(segment));
    }

    using Connections = std::map<Key, Entry>;

    Connections::iterator open(const Key& key, int end, const Segment& segment) {
        if (connections_.size() == kMostConnections) {
            const auto oldest = connections_.find(ages_.front());
            oldest->second.connection.finish();
            drop(oldest);
        }
        const auto age = ages_.insert(ages_.end(), key);
        const auto opened = connections_.emplace(key, Entry{Connection(++links_, results), age}).first;
        opened->second.connection.setHost(hostEnd(key, end, segment));
        return opened;
    }

    void drop(Connections::iterator entry) {
        ages_.erase(entry->second.age);
        connections_.erase(entry);
    }

    /// The side that opened the link is the host's, if nobody says otherwise.
    int hostEnd(const Key& key, int end, const Segment& segment) const {
        int opener = end;
        if (segment.starts)
            opener = segment.hasAcknowledgement ? 1 - end : end;
        else
            opener = key.first.port == passivePort(key) ? 1 : 0;
        return options_.side == Side::Equipment ? 1 - opener : opener;
    }
    int passivePort(const Key& key) const {
        const int usual = options_.port.value_or(secs2::kHsmsPort);
        if (key.first.port == usual || key.second.port == usual)
            return usual;
        return std::min(key.first.port, key.second.port);
    }

    RecordingOptions options_;
    Tins::IPv4Reassembler reassembler_;
    FragmentJoiner fragments6_;
    std::size_t fragments_ = 0;
    Connections connections_;
    std::list<Key> ages_; // of the connections, the oldest first
    std::size_t links_ = 0;
};

PacketReader::PacketReader(const RecordingOptions& options)
    : follower_(std::make_unique<Follower>(options)) {}

PacketReader::~PacketReader() = default;

bool PacketReader::knows(int linkType) {
    return std::find(kLinks.begin(), kLinks.end(), linkType) != kLinks.end();
}

void PacketReader::add(int linkType, std::string_view bytes, const std::optional<RecordedTime>& time,
                       std::size_t number) {
    follower_->add(linkType, bytes, time, number);
}

void PacketReader::finish() {
    follower_->finish();
}

bool PacketReader::take(RecordedMessage& message) {
    auto& messages = follower_->results.messages;
    if (messages.empty())
        return false;
    message = std::move(messages.front());
    messages.pop_front();
    return true;
}

std::vector<RecordingFault> PacketReader::takeFaults() {
    return std::exchange(follower_->results.faults, {});
}

} // namespace zb::rehearsal
