#include "rehearsal/fragment_joiner.h"

#include <iterator>

namespace zb::rehearsal {

namespace {

constexpr std::size_t kLongestPacket = 65535;
constexpr std::size_t kMostPackets = 64;
/// All fragments but the last have a multiple of it.
constexpr std::size_t kUnit = 8;

} // namespace

std::optional<std::string> FragmentJoiner::add(const FragmentedPacket& packet,
                                               const PacketFragment& fragment) {
    const std::size_t end = fragment.offset + fragment.data.size();
    const bool isOfNoPacket = end > kLongestPacket || fragment.data.empty() ||
                              (!fragment.isLast && fragment.data.size() % kUnit != 0);
    if (isOfNoPacket)
        return std::nullopt;
    const auto found = open(packet);
    Pieces& pieces = found->second;
    const auto known = pieces.byOffset.find(fragment.offset);
    if (known != pieces.byOffset.end() && known->second == fragment.data)
        return std::nullopt; // recorded twice
    if (!fits(pieces, fragment)) {
        drop(found);
        return std::nullopt;
    }
    pieces.byOffset.emplace(fragment.offset, fragment.data);
    pieces.received += fragment.data.size();
    if (fragment.isLast)
        pieces.size = end;
    if (pieces.received != pieces.size)
        return std::nullopt;
    std::string data;
    data.reserve(pieces.received);
    for (const auto& [offset, piece] : pieces.byOffset)
        data += piece;
    drop(found);
    return data;
}

bool FragmentJoiner::fits(const Pieces& pieces, const PacketFragment& fragment) {
    const std::size_t end = fragment.offset + fragment.data.size();
    const auto after = pieces.byOffset.lower_bound(fragment.offset);
    if (after != pieces.byOffset.end() && (fragment.isLast || after->first < end))
        return false;
    if (pieces.size && end > *pieces.size)
        return false;
    if (after == pieces.byOffset.begin())
        return true;
    const auto before = std::prev(after);
    return before->first + before->second.size() <= fragment.offset;
}

FragmentJoiner::Packets::iterator FragmentJoiner::open(const FragmentedPacket& packet) {
    const auto found = packets_.find(packet);
    if (found != packets_.end())
        return found;
    if (packets_.size() == kMostPackets)
        drop(packets_.find(ages_.front()));
    const auto opened = packets_.emplace(packet, Pieces()).first;
    opened->second.age = ages_.insert(ages_.end(), packet);
    return opened;
}

void FragmentJoiner::drop(Packets::iterator packet) {
    ages_.erase(packet->second.age);
    packets_.erase(packet);
}

} // namespace zb::rehearsal
