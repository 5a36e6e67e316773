#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zb {

class SettingsStore;

/// What the user has searched for, in this run and earlier ones, the latest first.
class FindTerms {
public:
    static constexpr std::size_t kMost = 20;

    explicit FindTerms(SettingsStore& settings) : settings_(settings) {}

    std::vector<std::string> all() const;
    /// Puts the term before the others; one that is there already moves. The empty term is not kept.
    void remember(const std::string& term);

private:
    SettingsStore& settings_;
};

/// A walk through the terms by the arrow keys of a field: Up shows an earlier one, Down a later one, and at
/// last what was typed.
class TermWalk {
public:
    /// What the field shows after one step up or down.
    std::string step(const FindTerms& terms, bool up, const std::string& shown);
    void restart() { place_ = 0; }

private:
    std::size_t place_ = 0; // 0: what was typed; otherwise a term, from 1
    std::string typed_;
};

} // namespace zb
