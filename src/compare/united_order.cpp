#include "compare/united_order.h"

#include <unordered_map>
#include <utility>

namespace zb {

namespace {

UnitedPlaces nowhere() {
    UnitedPlaces places{};
    places.fill(kNowhere);
    return places;
}

class Union {
public:
    explicit Union(const std::vector<std::size_t>& first) : first_(first), addedAfter_(first.size() + 1) {
        for (std::size_t at = 0; at < first.size(); ++at)
            positions_.emplace(first[at], at);
    }

    void add(std::size_t version, const OtherList& other) {
        std::size_t anchor = 0;
        for (const std::size_t element : other.elements) {
            const std::size_t partner = other.toFirst[element];
            if (partner == kNowhere)
                place(version, element, anchor, other.keyOf(element));
            else if (const auto found = positions_.find(partner); found != positions_.end())
                anchor = found->second + 1;
        }
    }

    std::vector<UnitedPlaces> list(const std::vector<OtherList>& others) {
        std::vector<UnitedPlaces> united = std::move(addedAfter_[0]);
        for (std::size_t at = 0; at < first_.size(); ++at) {
            UnitedPlaces places = nowhere();
            places[0] = first_[at];
            for (std::size_t other = 0; other < others.size(); ++other)
                places[other + 1] = others[other].ofFirst[first_[at]];
            united.push_back(places);
            united.insert(united.end(), addedAfter_[at + 1].begin(), addedAfter_[at + 1].end());
        }
        return united;
    }

private:
    void place(std::size_t version, std::size_t element, std::size_t anchor, const std::string& key) {
        auto& known = added_[key];
        for (const auto& [at, position] : known) {
            std::size_t& here = addedAfter_[at][position][version];
            if (here != kNowhere)
                continue;
            here = element;
            return;
        }
        UnitedPlaces places = nowhere();
        places[version] = element;
        known.emplace_back(anchor, addedAfter_[anchor].size());
        addedAfter_[anchor].push_back(places);
    }

    const std::vector<std::size_t>& first_;
    std::unordered_map<std::size_t, std::size_t> positions_;
    std::vector<std::vector<UnitedPlaces>> addedAfter_; // before all, and after each element
    std::unordered_map<std::string, std::vector<std::pair<std::size_t, std::size_t>>> added_;
};

} // namespace

std::vector<UnitedPlaces> uniteLists(const std::vector<std::size_t>& first,
                                     const std::vector<OtherList>& others) {
    Union united(first);
    for (std::size_t other = 0; other < others.size(); ++other)
        united.add(other + 1, others[other]);
    return united.list(others);
}

} // namespace zb
