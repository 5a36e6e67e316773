#include "compare/order_merge.h"

#include "compare/rising_run.h"

#include <algorithm>

namespace zb {

namespace {

using Elements = std::vector<std::size_t>;

/// What becomes of the elements of one side.
struct SideOrder {
    std::vector<bool> isHere;
    std::vector<bool> moved; ///< elements of the base
    /// The moved and added elements after each element of the skeleton, and before the first one at the end.
    std::vector<Elements> runs;
};

class Merger {
public:
    explicit Merger(const OrderMerge& merge)
        : merge_(merge), count_(merge.survives.size()), places_(count_, count_) {}

    MergedOrder run() {
        SideOrder ours = sideOf(merge_.ours);
        SideOrder theirs = sideOf(merge_.theirs);
        for (std::size_t element = 0; element < merge_.baseCount; ++element) {
            if (merge_.takesMove && theirs.moved[element] && !merge_.takesMove(element))
                theirs.moved[element] = false;
        }
        fillRuns(ours, theirs, merge_.ours);
        fillRuns(theirs, ours, merge_.theirs);
        dropDisputed(ours, theirs);
        appendRuns(ours.runs[count_], theirs.runs[count_]);
        for (std::size_t element = 0; element < merge_.baseCount; ++element) {
            if (!isSkeleton(element, ours, theirs))
                continue;
            order_.elements.push_back(element);
            appendRuns(ours.runs[element], theirs.runs[element]);
        }
        return std::move(order_);
    }

private:
    SideOrder sideOf(const Elements& list) const {
        SideOrder side{std::vector<bool>(count_, false), std::vector<bool>(count_, false), {}};
        side.runs.resize(count_ + 1);
        Elements known;
        for (const std::size_t element : list) {
            side.isHere[element] = true;
            if (element < merge_.baseCount)
                known.push_back(element);
        }
        const std::vector<bool> rising = longestRising(known);
        for (std::size_t at = 0; at < known.size(); ++at)
            side.moved[known[at]] = !rising[at];
        return side;
    }

    bool isSkeleton(std::size_t element, const SideOrder& ours, const SideOrder& theirs) const {
        return element < merge_.baseCount && merge_.survives[element] && !ours.moved[element] &&
               !theirs.moved[element];
    }

    void fillRuns(SideOrder& side, const SideOrder& other, const Elements& list) const {
        std::size_t anchor = count_;
        for (const std::size_t element : list) {
            if (!merge_.survives[element])
                continue;
            if (isSkeleton(element, side, other))
                anchor = element;
            else if (element >= merge_.baseCount || side.moved[element])
                side.runs[anchor].push_back(element);
        }
    }

    /// Where both sides put an element at different places, ours counts.
    void dropDisputed(const SideOrder& ours, SideOrder& theirs) {
        std::vector<std::size_t> anchors(count_, count_ + 1);
        for (std::size_t anchor = 0; anchor <= count_; ++anchor) {
            for (const std::size_t element : ours.runs[anchor])
                anchors[element] = anchor;
        }
        for (std::size_t anchor = 0; anchor <= count_; ++anchor) {
            std::erase_if(theirs.runs[anchor], [&](std::size_t element) {
                const bool elsewhere = anchors[element] <= count_ && anchors[element] != anchor;
                if (elsewhere)
                    order_.disputed.push_back(element);
                return elsewhere;
            });
        }
    }

    /// Merges what both sides put at one place. What both have is a fixed point.
    void appendRuns(const Elements& ours, const Elements& theirs) {
        if (ours.empty() || theirs.empty()) {
            const Elements& only = ours.empty() ? theirs : ours;
            order_.elements.insert(order_.elements.end(), only.begin(), only.end());
            return;
        }
        for (std::size_t at = 0; at < ours.size(); ++at)
            places_[ours[at]] = at;
        Elements pending; // theirs since the last fixed point
        std::size_t next = 0;
        for (const std::size_t element : theirs) {
            const std::size_t place = places_[element];
            if (place == count_) {
                pending.push_back(element);
                continue;
            }
            if (place < next) { // both have it, in another order
                order_.disputed.push_back(element);
                continue;
            }
            appendPiece(Elements(ours.begin() + static_cast<std::ptrdiff_t>(next),
                                 ours.begin() + static_cast<std::ptrdiff_t>(place)),
                        pending);
            pending.clear();
            order_.elements.push_back(element);
            next = place + 1;
        }
        appendPiece(Elements(ours.begin() + static_cast<std::ptrdiff_t>(next), ours.end()), pending);
        for (const std::size_t element : ours)
            places_[element] = count_;
    }

    void appendPiece(const Elements& ours, const Elements& theirs) {
        const bool oursFirst =
            !std::lexicographical_compare(theirs.begin(), theirs.end(), ours.begin(), ours.end(),
                                          [this](std::size_t one, std::size_t other) {
                                              return merge_.orderedBy(one) < merge_.orderedBy(other);
                                          });
        const Elements& first = oursFirst ? ours : theirs;
        const Elements& second = oursFirst ? theirs : ours;
        order_.elements.insert(order_.elements.end(), first.begin(), first.end());
        order_.elements.insert(order_.elements.end(), second.begin(), second.end());
    }

    const OrderMerge& merge_;
    std::size_t count_;
    std::vector<std::size_t> places_; ///< within the run of ours that is being merged, or count_
    MergedOrder order_;
};

} // namespace

MergedOrder mergeOrder(const OrderMerge& merge) {
    return Merger(merge).run();
}

} // namespace zb
