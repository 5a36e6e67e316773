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

/// A transaction that does not follow a sequence that has begun.
struct Deviation {
    std::string transaction;
    std::string sequence;
    bool restarts; ///< the sequence begins again; otherwise it goes on after this transaction
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

    /// A transaction passes: all sequences that expect it go on. When there is none, those that it begins
    /// begin. When it begins none, the last one that went on and has it goes on there.
    std::vector<Deviation> take(std::string_view transaction) {
        std::vector<Deviation> deviations;
        const auto users = users_.find(transaction);
        if (users == users_.end())
            return deviations;
        ++turn_;
        if (!advance(users->second, transaction) && !begin(users->second, transaction, deviations))
            skip(users->second, transaction, deviations);
        return deviations;
    }

    /// The sequences that have begun, with the number of steps that have passed.
    std::map<std::string, std::size_t> underWay() const {
        std::map<std::string, std::size_t> places;
        for (const auto& [index, course] : courses_)
            places[sequences_[index].name] = course.passed;
        return places;
    }

private:
    using Users = std::vector<std::size_t>;
    struct Course {
        std::size_t passed; ///< the number of steps
        std::size_t turn;   ///< of the last one
    };

    bool advance(const Users& users, std::string_view transaction) {
        bool isExpected = false;
        for (const std::size_t index : users) {
            const auto course = courses_.find(index);
            if (course == courses_.end() || sequences_[index].steps[course->second.passed] != transaction)
                continue;
            isExpected = true;
            setPassed(index, course->second.passed + 1);
        }
        return isExpected;
    }

    bool begin(const Users& users, std::string_view transaction, std::vector<Deviation>& deviations) {
        bool hasBegun = false;
        for (const std::size_t index : users) {
            const Sequence& sequence = sequences_[index];
            if (sequence.steps.front() != transaction)
                continue;
            hasBegun = true;
            if (courses_.count(index) > 0)
                deviations.push_back({std::string(transaction), sequence.name, true});
            setPassed(index, 1);
        }
        return hasBegun;
    }

    void skip(const Users& users, std::string_view transaction, std::vector<Deviation>& deviations) {
        auto latest = courses_.end();
        for (const std::size_t index : users) {
            const auto course = courses_.find(index);
            if (course != courses_.end() && (latest == courses_.end() || course->second.turn > latest->second.turn))
                latest = course;
        }
        if (latest == courses_.end())
            return;
        const std::size_t index = latest->first;
        const std::vector<std::string>& steps = sequences_[index].steps;
        deviations.push_back({std::string(transaction), sequences_[index].name, false});
        const auto rest = steps.begin() + static_cast<std::ptrdiff_t>(latest->second.passed);
        const auto step = std::find(rest, steps.end(), transaction);
        if (step != steps.end())
            setPassed(index, static_cast<std::size_t>(step - steps.begin()) + 1);
    }

    void setPassed(std::size_t index, std::size_t passed) {
        courses_[index] = {passed, turn_};
        if (passed == sequences_[index].steps.size())
            courses_.erase(index);
    }

    const std::vector<Sequence>& sequences_;
    std::map<std::string, std::vector<std::size_t>, std::less<>> users_; ///< the sequences with a transaction
    std::map<std::size_t, Course> courses_;
    std::size_t turn_ = 0;
};

} // namespace zelto

#endif
