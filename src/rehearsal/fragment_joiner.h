#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace zb::rehearsal {

/// What all fragments of one IPv6 packet have in common.
struct FragmentedPacket {
    std::string from, to; ///< the addresses
    std::uint32_t identification = 0;

    bool operator<(const FragmentedPacket& other) const {
        return std::tie(from, to, identification) < std::tie(other.from, other.to, other.identification);
    }
};

/// One of the pieces of a packet.
struct PacketFragment {
    std::size_t offset = 0; ///< in bytes
    bool isLast = false;
    std::string_view data;
};

/// Joins the fragments of IPv6 packets, in whatever order they come. Its memory is limited: of too many open
/// packets the oldest is given up. A packet whose fragments contradict each other is given up, too.
class FragmentJoiner {
public:
    /// The data of the whole packet, when this fragment completes it.
    std::optional<std::string> add(const FragmentedPacket& packet, const PacketFragment& fragment);

private:
    struct Pieces {
        std::map<std::size_t, std::string> byOffset; ///< without overlaps
        std::size_t received = 0;                    ///< bytes
        std::optional<std::size_t> size;             ///< known from the last fragment on
        std::list<FragmentedPacket>::iterator age;
    };
    using Packets = std::map<FragmentedPacket, Pieces>;

    Packets::iterator open(const FragmentedPacket& packet);
    void drop(Packets::iterator packet);
    static bool fits(const Pieces& pieces, const PacketFragment& fragment);

    Packets packets_;
    std::list<FragmentedPacket> ages_; ///< the oldest first
};

} // namespace zb::rehearsal
