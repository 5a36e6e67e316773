#include "compare/row_list.h"

#include <utility>

namespace zb {

namespace {

std::string keyOf(PartKind kind, const DifferencePlace& place, std::string_view field) {
    std::string key(wordOf(kind));
    key.append(1, '\0').append(place.name).append(1, '\0').append(place.path);
    return key.append(1, '\0').append(field);
}

} // namespace

void RowList::add(AlignedRow row, const RowPlaces& places) {
    for (std::size_t version = 0; version < kMostVersions && !equal_; ++version) {
        // The first of several with one name has the row.
        if (row.texts[version])
            index_[version].emplace(keyOf(places.kind, places.places[version], places.field), rows_.size());
    }
    rows_.push_back(std::move(row));
}

void RowList::attach(const Differences& differences, std::size_t other) {
    for (std::size_t at = 0; at < differences.size(); ++at) {
        const Difference& difference = differences[at];
        const bool isAdded = difference.change == ChangeKind::Added;
        const DifferencePlace& place = isAdded ? difference.place : difference.placeBefore;
        const Index& index = index_[isAdded ? other + 1 : 0];
        auto found = index.find(keyOf(difference.kind, place, difference.field));
        // A field that has no row of its own is seen in the row of its item.
        if (found == index.end())
            found = index.find(keyOf(difference.kind, place, {}));
        if (found != index.end())
            rows_[found->second].differences[other].push_back(at);
    }
}

std::vector<AlignedRow> RowList::takeDifferent(std::size_t others) {
    std::vector<bool> kept(rows_.size(), false);
    // A row above this level is above a row that is kept.
    std::size_t level = 0;
    for (std::size_t at = rows_.size(); at-- > 0;) {
        const AlignedRow& row = rows_[at];
        kept[at] = row.level < level;
        for (std::size_t other = 0; other < others; ++other)
            kept[at] = kept[at] || row.differsFrom(other);
        if (kept[at])
            level = row.level;
    }
    std::vector<AlignedRow> rows;
    for (std::size_t at = 0; at < rows_.size(); ++at) {
        if (kept[at])
            rows.push_back(std::move(rows_[at]));
    }
    return rows;
}

} // namespace zb
