#include "compare/item_matching.h"

#include "compare/alignment.h"
#include "messages/item_names.h"
#include "messages/message_nodes.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <unordered_map>

namespace zb {

namespace {

/// How far an item looks for a similar one within its list.
constexpr std::size_t kFarthestLook = 64;

using Nodes = std::vector<std::size_t>;

/// Whether two items of the same list could be one that was changed.
enum class Likeness { None, Similar, Renamed };

Likeness likenessOf(std::string_view left, std::string_view right) {
    if (wordAt(left, 0) != wordAt(right, 0))
        return Likeness::None;
    const std::string_view leftName = itemNameInText(left);
    const std::string_view rightName = itemNameInText(right);
    if (leftName.empty() && rightName.empty())
        return Likeness::Similar;
    const auto afterName = [](std::string_view text, std::string_view name) {
        return name.empty() ? std::string_view()
                            : text.substr(static_cast<std::size_t>(name.data() - text.data()) + name.size());
    };
    const bool sameRest =
        wordAt(left, 1) == wordAt(right, 1) &&
        (wordAt(left, 0) == "L" || afterName(left, leftName) == afterName(right, rightName));
    return sameRest ? Likeness::Renamed : Likeness::Similar;
}

class Matcher {
public:
    Matcher(const ItemTree& left, const ItemTree& right)
        : left_(left), right_(right), leftHashes_(subtreeHashes(left)), rightHashes_(subtreeHashes(right)),
          leftEnds_(left.subtreeEnds()), rightEnds_(right.subtreeEnds()) {
        matching_.ofLeft.assign(left.count(), kNoNode);
        matching_.ofRight.assign(right.count(), kNoNode);
        matching_.join(ItemTree::kRoot, ItemTree::kRoot);
    }

    ItemMatching run(ItemNames names) {
        if (names == ItemNames::Count) {
            matchNames();
            matchListsBySubItems();
        }
        // Partners of a node come after it, so that each pair of lists is seen once.
        for (std::size_t node = 0; node < left_.count(); ++node) {
            if (matching_.ofLeft[node] != kNoNode)
                matchChildren(node, matching_.ofLeft[node]);
        }
        return std::move(matching_);
    }

private:
    void matchNames() {
        struct Places {
            std::size_t lefts = 0;
            std::size_t rights = 0;
            std::size_t left = 0;
            std::size_t right = 0;
        };
        std::unordered_map<std::string_view, Places> places;
        for (std::size_t node = 1; node < left_.count(); ++node) {
            Places& known = places[itemNameInText(left_.at(node).text)];
            ++known.lefts;
            known.left = node;
        }
        for (std::size_t node = 1; node < right_.count(); ++node) {
            Places& known = places[itemNameInText(right_.at(node).text)];
            ++known.rights;
            known.right = node;
        }
        for (const auto& [name, known] : places) {
            if (!name.empty() && known.lefts == 1 && known.rights == 1)
                matching_.join(known.left, known.right);
        }
    }

    /// From the innermost lists up: the partner is the list in which most partners of the sub items are.
    void matchListsBySubItems() {
        for (std::size_t node = left_.count(); node-- > 1;) {
            const ItemTree::Node& list = left_.at(node);
            if (matching_.ofLeft[node] != kNoNode || list.children.empty())
                continue;
            std::unordered_map<std::size_t, std::size_t> votes;
            std::size_t best = kNoNode;
            std::size_t most = 0;
            for (const std::size_t child : list.children) {
                if (matching_.ofLeft[child] == kNoNode)
                    continue;
                const std::size_t parent = right_.at(matching_.ofLeft[child]).parent;
                if (matching_.ofRight[parent] != kNoNode || ++votes[parent] <= most)
                    continue;
                most = votes[parent];
                best = parent;
            }
            if (best != kNoNode && wordAt(list.text, 0) == wordAt(right_.at(best).text, 0))
                matching_.join(node, best);
        }
    }

    static Nodes unmatched(const Nodes& children, const Nodes& partners) {
        Nodes open;
        std::copy_if(children.begin(), children.end(), std::back_inserter(open),
                     [&](std::size_t child) { return partners[child] == kNoNode; });
        return open;
    }

    void matchChildren(std::size_t leftList, std::size_t rightList) {
        const Nodes lefts = unmatched(left_.at(leftList).children, matching_.ofLeft);
        const Nodes rights = unmatched(right_.at(rightList).children, matching_.ofRight);
        if (lefts.empty() || rights.empty())
            return;
        std::vector<std::uint64_t> leftValues;
        std::vector<std::uint64_t> rightValues;
        for (const std::size_t node : lefts)
            leftValues.push_back(leftHashes_[node]);
        for (const std::size_t node : rights)
            rightValues.push_back(rightHashes_[node]);
        std::size_t leftStart = 0;
        std::size_t rightStart = 0;
        for (const auto& [l, r] : alignEqual(leftValues, rightValues)) {
            matchGap(lefts, leftStart, l, rights, rightStart, r);
            matchEqual(lefts[l], rights[r]);
            leftStart = l + 1;
            rightStart = r + 1;
        }
        matchGap(lefts, leftStart, lefts.size(), rights, rightStart, rights.size());
    }

    /// Subtrees with equal hashes, node by node.
    void matchEqual(std::size_t left, std::size_t right) {
        const std::size_t size = leftEnds_[left] - left;
        if (size != rightEnds_[right] - right) {
            matching_.join(left, right);
            return;
        }
        for (std::size_t at = 0; at < size; ++at) {
            if (matching_.ofLeft[left + at] == kNoNode && matching_.ofRight[right + at] == kNoNode)
                matching_.join(left + at, right + at);
        }
    }

    void matchGap(const Nodes& lefts, std::size_t l, std::size_t leftEnd, const Nodes& rights, std::size_t r,
                  std::size_t rightEnd) {
        while (l < leftEnd && r < rightEnd) {
            const bool sameNumber = leftEnd - l == rightEnd - r;
            const std::size_t partner = partnerInGap(lefts[l], rights, r, rightEnd, sameNumber);
            if (partner != kNoNode) {
                matching_.join(lefts[l], rights[partner]);
                r = partner + 1;
            }
            ++l;
        }
    }

    /// The position of a renamed item, otherwise of a similar one; the next one where as many are left on
    /// both sides.
    std::size_t partnerInGap(std::size_t left, const Nodes& rights, std::size_t from, std::size_t end,
                             bool sameNumber) const {
        const std::string_view text = left_.at(left).text;
        std::size_t similar = kNoNode;
        for (std::size_t at = from; at < std::min(end, from + kFarthestLook); ++at) {
            const Likeness likeness = likenessOf(text, right_.at(rights[at]).text);
            if (likeness == Likeness::Renamed)
                return at;
            if (likeness == Likeness::Similar && similar == kNoNode)
                similar = at;
        }
        const bool areLists = wordAt(text, 0) == "L" || wordAt(right_.at(rights[from]).text, 0) == "L";
        if (sameNumber && (!areLists || likenessOf(text, right_.at(rights[from]).text) != Likeness::None))
            return from;
        return similar;
    }

    const ItemTree& left_;
    const ItemTree& right_;
    std::vector<std::uint64_t> leftHashes_;
    std::vector<std::uint64_t> rightHashes_;
    Nodes leftEnds_;
    Nodes rightEnds_;
    ItemMatching matching_;
};

} // namespace

ItemMatching matchItems(const ItemTree& left, const ItemTree& right, ItemNames names) {
    return Matcher(left, right).run(names);
}

std::vector<std::uint64_t> subtreeHashes(const ItemTree& tree) {
    std::vector<std::uint64_t> hashes(tree.count());
    for (std::size_t node = tree.count(); node-- > 0;) {
        std::uint64_t hash = std::hash<std::string_view>()(tree.at(node).text);
        for (const std::size_t child : tree.at(node).children)
            hash = hash * 0x9E3779B97F4A7C15U + (hashes[child] ^ (hashes[child] >> 29U));
        hashes[node] = hash ^ (hash >> 32U);
    }
    return hashes;
}

} // namespace zb
