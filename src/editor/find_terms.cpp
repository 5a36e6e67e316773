#include "editor/find_terms.h"

#include "platform/settings.h"
#include "platform/text.h"

#include <algorithm>

namespace zb {

namespace {

constexpr std::string_view kFindTerms = "FindTerms";
// A field of one line has none.
constexpr const char* kSeparator = "\n";

} // namespace

std::vector<std::string> FindTerms::all() const {
    return split(settings_.stored(kSettingsKey, kFindTerms).value_or(std::string()), kSeparator);
}

void FindTerms::remember(const std::string& term) {
    std::vector<std::string> terms = all();
    if (term.empty() || contains(term, kSeparator) || (!terms.empty() && terms.front() == term))
        return;
    std::erase(terms, term);
    terms.insert(terms.begin(), term);
    terms.resize(std::min(terms.size(), kMost));
    settings_.writeRegValue(kSettingsKey, kFindTerms, join(terms, kSeparator));
}

std::string TermWalk::step(const FindTerms& terms, bool up, const std::string& shown) {
    const std::vector<std::string> all = terms.all();
    if (place_ == 0)
        typed_ = shown;
    if (up)
        place_ = std::min(place_ + 1, all.size());
    else if (place_ > 0)
        --place_;
    place_ = std::min(place_, all.size());
    return place_ == 0 ? typed_ : all[place_ - 1];
}

} // namespace zb
