#include "compare/block_matching.h"

#include "compare/likeness.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace zb {

namespace {

constexpr bool isOpen(std::size_t partner) {
    return partner == kNoBlock;
}

/// Joins open blocks with equal keys, the first of each key with the first.
template<typename KeyOfLeft, typename KeyOfRight>
void joinByKey(BlockMatching& matching, const KeyOfLeft& keyOfLeft, const KeyOfRight& keyOfRight) {
    // For each key the open blocks on the right, the last one first.
    std::unordered_map<std::string, std::vector<std::size_t>> rights;
    for (std::size_t right = matching.ofRight.size(); right-- > 0;) {
        if (isOpen(matching.ofRight[right]))
            rights[keyOfRight(right)].push_back(right);
    }
    if (rights.empty())
        return;
    for (std::size_t left = 0; left < matching.ofLeft.size(); ++left) {
        if (!isOpen(matching.ofLeft[left]))
            continue;
        const auto found = rights.find(keyOfLeft(left));
        if (found == rights.end() || found->second.empty())
            continue;
        matching.join(left, found->second.back());
        found->second.pop_back();
    }
}

BlockMatching openMatching(std::size_t lefts, std::size_t rights) {
    return {std::vector<std::size_t>(lefts, kNoBlock), std::vector<std::size_t>(rights, kNoBlock)};
}

struct Group {
    std::vector<std::size_t> lefts;
    std::vector<std::size_t> rights;
};

void joinRenamed(const PartForm& form, const Blocks& left, const Blocks& right, BlockMatching& matching) {
    std::unordered_map<std::string, Group> groups;
    for (std::size_t at = 0; at < left.size(); ++at) {
        if (isOpen(matching.ofLeft[at]))
            groups[form.likenessGroup(left[at].text)].lefts.push_back(at);
    }
    if (groups.empty())
        return;
    for (std::size_t at = 0; at < right.size(); ++at) {
        if (!isOpen(matching.ofRight[at]))
            continue;
        if (const auto found = groups.find(form.likenessGroup(right[at].text)); found != groups.end())
            found->second.rights.push_back(at);
    }
    for (const auto& [name, group] : groups) {
        if (name.empty() || group.rights.empty())
            continue;
        std::vector<LineCounts> lefts;
        std::vector<LineCounts> rights;
        for (const std::size_t at : group.lefts)
            lefts.push_back(countLines(form, left[at].text));
        for (const std::size_t at : group.rights)
            rights.push_back(countLines(form, right[at].text));
        for (const auto& [l, r] : pairByLikeness(lefts, rights))
            matching.join(group.lefts[l], group.rights[r]);
    }
}

} // namespace

BlockMatching matchBlocks(const PartForm& form, const Blocks& left, const Blocks& right) {
    BlockMatching matching = openMatching(left.size(), right.size());
    joinByKey(
        matching, [&](std::size_t at) { return left[at].name; },
        [&](std::size_t at) { return right[at].name; });
    joinByKey(
        matching, [&](std::size_t at) { return form.nameKey(left[at].name); },
        [&](std::size_t at) { return form.nameKey(right[at].name); });
    joinRenamed(form, left, right, matching);
    return matching;
}

BlockMatching matchParts(const std::vector<Entry>& left, const std::vector<Entry>& right) {
    BlockMatching matching = openMatching(left.size(), right.size());
    joinByKey(
        matching, [&](std::size_t at) { return left[at].name; },
        [&](std::size_t at) { return right[at].name; });
    // What has no value is like everything else without one.
    const auto keyOf = [](const Entry& item, const char* side, std::size_t at) {
        return item.stored("value").empty()
                   ? side + std::to_string(at)
                   : "= " + std::string(item.stored("type")) + " " + std::string(item.stored("value"));
    };
    joinByKey(
        matching, [&](std::size_t at) { return keyOf(left[at], "left ", at); },
        [&](std::size_t at) { return keyOf(right[at], "right ", at); });
    return matching;
}

} // namespace zb
