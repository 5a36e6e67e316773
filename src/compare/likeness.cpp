#include "compare/likeness.h"

#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <functional>
#include <tuple>
#include <unordered_map>

namespace zb {

namespace {

/// In a group of so few pairs, each is compared.
constexpr std::size_t kFewPairs = 20'000;
/// A line that more parts than this contain does not help to pair them.
constexpr std::size_t kCommonLine = 32;

constexpr double kLeast = 0.5;
constexpr double kLeastWhenAlone = 0.25;

struct Candidate {
    double likeness;
    std::size_t left;
    std::size_t right;
};

/// The pairs of a large group that share at least one telling line.
std::vector<std::pair<std::size_t, std::size_t>> pairsWithEqualLines(const std::vector<LineCounts>& left,
                                                                     const std::vector<LineCounts>& right) {
    std::unordered_map<std::uint64_t, std::vector<std::size_t>> places;
    for (std::size_t at = 0; at < right.size(); ++at) {
        for (const std::uint64_t line : right[at]) {
            if (std::vector<std::size_t>& known = places[line]; known.size() <= kCommonLine)
                known.push_back(at);
        }
    }
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    for (std::size_t at = 0; at < left.size(); ++at) {
        std::vector<std::size_t> others;
        for (const std::uint64_t line : left[at]) {
            const auto found = places.find(line);
            if (found != places.end() && found->second.size() <= kCommonLine)
                others.insert(others.end(), found->second.begin(), found->second.end());
        }
        std::sort(others.begin(), others.end());
        others.erase(std::unique(others.begin(), others.end()), others.end());
        for (const std::size_t other : others)
            pairs.emplace_back(at, other);
    }
    return pairs;
}

std::vector<std::pair<std::size_t, std::size_t>> allPairs(std::size_t lefts, std::size_t rights) {
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    for (std::size_t left = 0; left < lefts; ++left) {
        for (std::size_t right = 0; right < rights; ++right)
            pairs.emplace_back(left, right);
    }
    return pairs;
}

} // namespace

LineCounts countLines(const PartForm& form, std::string_view block) {
    LineCounts counts;
    LineReader lines(block);
    while (const auto line = lines.next()) {
        std::string_view text = trimmed(*line);
        if (text.ends_with('.'))
            text.remove_suffix(1);
        if (!text.empty() && form.isTellingLine(*line))
            counts.push_back(std::hash<std::string_view>()(text));
    }
    std::sort(counts.begin(), counts.end());
    return counts;
}

double likenessOf(const LineCounts& left, const LineCounts& right) {
    std::size_t equal = 1;
    for (auto l = left.begin(), r = right.begin(); l != left.end() && r != right.end();) {
        if (*l == *r) {
            ++equal;
            ++l;
            ++r;
        } else if (*l < *r) {
            ++l;
        } else {
            ++r;
        }
    }
    return 2.0 * static_cast<double>(equal) / static_cast<double>(left.size() + right.size() + 2);
}

std::vector<std::pair<std::size_t, std::size_t>> pairByLikeness(const std::vector<LineCounts>& left,
                                                                const std::vector<LineCounts>& right) {
    const bool alone = left.size() == 1 && right.size() == 1;
    const bool few = left.size() * right.size() <= kFewPairs;
    std::vector<Candidate> candidates;
    for (const auto& [l, r] : few ? allPairs(left.size(), right.size()) : pairsWithEqualLines(left, right)) {
        const double likeness = likenessOf(left[l], right[r]);
        if (alone ? likeness >= kLeastWhenAlone : likeness > kLeast)
            candidates.push_back({likeness, l, r});
    }
    std::sort(candidates.begin(), candidates.end(), [](const Candidate& one, const Candidate& other) {
        return std::tuple(-one.likeness, one.left, one.right) <
               std::tuple(-other.likeness, other.left, other.right);
    });
    std::vector<bool> leftDone(left.size(), false);
    std::vector<bool> rightDone(right.size(), false);
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    for (const Candidate& candidate : candidates) {
        if (leftDone[candidate.left] || rightDone[candidate.right])
            continue;
        leftDone[candidate.left] = true;
        rightDone[candidate.right] = true;
        pairs.emplace_back(candidate.left, candidate.right);
    }
    return pairs;
}

} // namespace zb
