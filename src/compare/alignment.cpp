#include "compare/alignment.h"

#include "compare/rising_run.h"

#include <algorithm>
#include <unordered_map>

namespace zb {

namespace {

using Pairs = std::vector<std::pair<std::size_t, std::size_t>>;
using Values = std::vector<std::uint64_t>;

/// The largest table of the exact way.
constexpr std::size_t kLargestTable = 1'000'000;

/// The part of both lists between their equal ends.
struct Middle {
    std::size_t start = 0;
    std::size_t leftEnd = 0;
    std::size_t rightEnd = 0;

    std::size_t leftSize() const { return leftEnd - start; }
    std::size_t rightSize() const { return rightEnd - start; }
};

Middle middleOf(const Values& left, const Values& right) {
    Middle middle{0, left.size(), right.size()};
    while (middle.start < std::min(left.size(), right.size()) && left[middle.start] == right[middle.start])
        ++middle.start;
    while (middle.leftEnd > middle.start && middle.rightEnd > middle.start &&
           left[middle.leftEnd - 1] == right[middle.rightEnd - 1]) {
        --middle.leftEnd;
        --middle.rightEnd;
    }
    return middle;
}

void alignExactly(const Values& left, const Values& right, const Middle& middle, Pairs& pairs) {
    const std::size_t width = middle.rightSize() + 1;
    std::vector<std::uint32_t> lengths((middle.leftSize() + 1) * width, 0);
    for (std::size_t l = middle.leftSize(); l-- > 0;) {
        for (std::size_t r = middle.rightSize(); r-- > 0;) {
            const bool equal = left[middle.start + l] == right[middle.start + r];
            lengths[l * width + r] = equal
                                         ? lengths[(l + 1) * width + r + 1] + 1
                                         : std::max(lengths[(l + 1) * width + r], lengths[l * width + r + 1]);
        }
    }
    for (std::size_t l = 0, r = 0; l < middle.leftSize() && r < middle.rightSize();) {
        if (left[middle.start + l] == right[middle.start + r])
            pairs.emplace_back(middle.start + l++, middle.start + r++);
        else if (lengths[(l + 1) * width + r] >= lengths[l * width + r + 1])
            ++l;
        else
            ++r;
    }
}

void alignByUnique(const Values& left, const Values& right, const Middle& middle, Pairs& pairs) {
    struct Places {
        std::size_t lefts = 0;
        std::size_t rights = 0;
        std::size_t right = 0;
    };
    std::unordered_map<std::uint64_t, Places> places;
    for (std::size_t at = middle.start; at < middle.leftEnd; ++at)
        ++places[left[at]].lefts;
    for (std::size_t at = middle.start; at < middle.rightEnd; ++at) {
        Places& known = places[right[at]];
        ++known.rights;
        known.right = at;
    }
    Pairs found;
    std::vector<std::size_t> rights;
    for (std::size_t at = middle.start; at < middle.leftEnd; ++at) {
        const Places& known = places[left[at]];
        if (known.lefts != 1 || known.rights != 1)
            continue;
        found.emplace_back(at, known.right);
        rights.push_back(known.right);
    }
    const std::vector<bool> rising = longestRising(rights);
    for (std::size_t at = 0; at < found.size(); ++at) {
        if (rising[at])
            pairs.push_back(found[at]);
    }
}

} // namespace

Pairs alignEqual(const Values& left, const Values& right) {
    const Middle middle = middleOf(left, right);
    Pairs pairs;
    for (std::size_t at = 0; at < middle.start; ++at)
        pairs.emplace_back(at, at);
    if (middle.leftSize() * middle.rightSize() <= kLargestTable)
        alignExactly(left, right, middle, pairs);
    else
        alignByUnique(left, right, middle, pairs);
    for (std::size_t at = 0; middle.leftEnd + at < left.size(); ++at)
        pairs.emplace_back(middle.leftEnd + at, middle.rightEnd + at);
    return pairs;
}

} // namespace zb
