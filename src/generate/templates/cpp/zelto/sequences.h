#ifndef ZELTO_SEQUENCES_H
#define ZELTO_SEQUENCES_H

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zelto {

/// A named list of transactions that follow each other.
struct Sequence {
    std::string name;
    std::vector<std::string> steps;
};

/// A transaction that does not follow the sequences.
struct Deviation {
    std::string transaction;
    /// The sequence that begins again before its end; empty when no sequence that has begun expects the
    /// transaction.
    std::string restarted;
};

/// Follows the sequences while transactions pass. Several can be under way at the same time.
class SequenceTracker {
public:
    explicit SequenceTracker(const std::vector<Sequence>& sequences) : sequences_(sequences) {
        for (std::size_t index = 0; index < sequences.size(); ++index) {
            for (const std::string& step : sequences[index].steps) {
                std::vector<std::size_t>& users = users_[step];
                if (users.empty() || users.back() != index)
                    users.push_back(index);
            }
        }
    }

    /// A transaction passes: all sequences that expect it go on; when there is none, those that it begins begin.
    std::vector<Deviation> take(std::string_view transaction) {
        std::vector<Deviation> deviations;
        const auto users = users_.find(transaction);
        if (users == users_.end() || advance(users->second, transaction))
            return deviations;
        bool hasBegun = false;
        for (const std::size_t index : users->second) {
            const Sequence& sequence = sequences_[index];
            if (sequence.steps.front() != transaction)
                continue;
            hasBegun = true;
            if (passed_.count(index) > 0)
                deviations.push_back({std::string(transaction), sequence.name});
            passed_[index] = 1;
            if (sequence.steps.size() == 1)
                passed_.erase(index);
        }
        if (!hasBegun)
            deviations.push_back({std::string(transaction), {}});
        return deviations;
    }

    /// The sequences that have begun, with the number of steps that have passed.
    std::map<std::string, std::size_t> underWay() const {
        std::map<std::string, std::size_t> places;
        for (const auto& [index, passed] : passed_)
            places[sequences_[index].name] = passed;
        return places;
    }

private:
    bool advance(const std::vector<std::size_t>& users, std::string_view transaction) {
        bool isExpected = false;
        for (const std::size_t index : users) {
            const auto place = passed_.find(index);
            if (place == passed_.end() || sequences_[index].steps[place->second] != transaction)
                continue;
            isExpected = true;
            if (++place->second == sequences_[index].steps.size())
                passed_.erase(place);
        }
        return isExpected;
    }

    const std::vector<Sequence>& sequences_;
    std::map<std::string, std::vector<std::size_t>, std::less<>> users_; ///< the sequences with a transaction
    std::map<std::size_t, std::size_t> passed_;
};

} // namespace zelto

#endif
