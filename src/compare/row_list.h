#pragma once

#include "compare/aligned_rows.h"

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

namespace zb {

/// Where a row is in each version, in the words of differences.
struct RowPlaces {
    PartKind kind = PartKind::Message;
    std::array<DifferencePlace, kMostVersions> places;
    std::string field; ///< of a field
};

/// Collects rows, and finds them again by the places of differences.
class RowList {
public:
    /// A row in which nothing can differ.
    void add(AlignedRow row) { rows_.push_back(std::move(row)); }
    /// `places` are those of the versions that have the row.
    void add(AlignedRow row, const RowPlaces& places);
    /// Nothing differs in the rows that follow, so that they need not be found again.
    void setEqual(bool equal) { equal_ = equal; }
    /// Puts each difference to the other version (0 or 1) into its row.
    void attach(const Differences& differences, std::size_t other);
    std::vector<AlignedRow> takeAll() { return std::move(rows_); }
    /// The rows that differ from one of so many other versions, with the rows above them.
    std::vector<AlignedRow> takeDifferent(std::size_t others);

private:
    using Index = std::unordered_map<std::string, std::size_t>;

    std::vector<AlignedRow> rows_;
    bool equal_ = false;
    std::array<Index, kMostVersions> index_;
};

} // namespace zb
