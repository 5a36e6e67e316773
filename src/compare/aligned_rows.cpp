#include "compare/aligned_rows.h"

#include "compare/aligned_entry.h"
#include "compare/block_matching.h"
#include "compare/project_parts.h"
#include "compare/rising_run.h"
#include "compare/row_list.h"

#include <memory>
#include <numeric>
#include <utility>

namespace zb {

namespace {

using Role = AlignedRow::Role;
using Versions = std::vector<const ProjectParts*>;

const char* captionOf(std::size_t section) {
    switch (section) {
    case ProjectParts::Messages:
        return "SECS messages";
    case ProjectParts::Model:
        return "TR messages";
    case ProjectParts::SequenceTable:
        return "Sequences";
    default:
        return "Project";
    }
}

/// The rows of one section.
class SectionRows {
public:
    SectionRows(const Versions& versions, std::size_t section, AlignedExtent extent, RowList& rows)
        : versions_(versions), section_(section), form_(ProjectParts::form(section)), extent_(extent),
          rows_(rows) {}

    void run(const Progress& progress) {
        addHead();
        if (section_ == ProjectParts::Foreign)
            addSide();
        const std::vector<UnitedPlaces> parts = unite();
        for (std::size_t at = 0; at < parts.size(); ++at) {
            progress.at(at, parts.size());
            addPart(parts[at]);
        }
    }

private:
    const Blocks& blocks(std::size_t version) const { return versions_[version]->blocks(section_); }

    void addHead() {
        AlignedRow row;
        for (std::size_t version = 0; version < versions_.size(); ++version)
            row.texts[version] = captionOf(section_);
        rows_.add(std::move(row));
    }

    void addSide() {
        AlignedRow row{1, Role::Field, {}, {}};
        for (std::size_t version = 0; version < versions_.size(); ++version)
            row.texts[version] = "side: " + wordOf(versions_[version]->project().side);
        rows_.add(std::move(row), {PartKind::Project, {}, "side"});
    }

    std::vector<UnitedPlaces> unite() {
        moved_.resize(versions_.size());
        std::vector<std::vector<std::size_t>> lists(versions_.size());
        std::vector<BlockMatching> matchings(versions_.size());
        std::vector<OtherList> others;
        for (std::size_t version = 0; version < versions_.size(); ++version) {
            lists[version].resize(blocks(version).size());
            std::iota(lists[version].begin(), lists[version].end(), std::size_t{0});
            if (version == 0)
                continue;
            matchings[version] = matchBlocks(form_, blocks(0), blocks(version));
            moved_[version] = movedBlocks(matchings[version]);
            others.push_back(
                {lists[version], matchings[version].ofLeft, matchings[version].ofRight,
                 [&, version](std::size_t block) { return form_.nameKey(blocks(version)[block].name); }});
        }
        return uniteLists(lists[0], others);
    }

    void addPart(const UnitedPlaces& part) {
        PartVersions texts;
        bool isSame = true;
        for (std::size_t version = 0; version < versions_.size(); ++version) {
            if (part[version] != kNowhere)
                texts[version] = blocks(version)[part[version]].text;
            isSame = isSame && texts[version] == texts[0];
        }
        // A part that only moved has the row of its head.
        const bool differs = !isSame || moved(part);
        rows_.setEqual(!differs);
        if (differs || extent_ == AlignedExtent::All)
            addRowsOfPart(form_, texts, versions_.size(), rows_);
        rows_.setEqual(false);
    }

    /// The blocks on the right that are not in the order of those on the left, as a comparison finds them.
    static std::vector<bool> movedBlocks(const BlockMatching& matching) {
        std::vector<std::size_t> known;
        std::vector<std::size_t> partners;
        for (std::size_t right = 0; right < matching.ofRight.size(); ++right) {
            if (matching.ofRight[right] == kNoBlock)
                continue;
            known.push_back(right);
            partners.push_back(matching.ofRight[right]);
        }
        std::vector<bool> moved(matching.ofRight.size(), false);
        const std::vector<bool> rising = longestRising(partners);
        for (std::size_t at = 0; at < known.size(); ++at)
            moved[known[at]] = !rising[at];
        return moved;
    }

    bool moved(const UnitedPlaces& part) const {
        for (std::size_t version = 1; version < versions_.size(); ++version) {
            if (part[version] != kNowhere && moved_[version][part[version]])
                return true;
        }
        return false;
    }

    const Versions& versions_;
    std::size_t section_;
    const PartForm& form_;
    AlignedExtent extent_;
    RowList& rows_;
    std::vector<std::vector<bool>> moved_; // of each version, by block
};

} // namespace

AlignedProjects alignProjects(const Project& project, const std::vector<const Project*>& others,
                              CompareScope scope, AlignedExtent extent, const Progress& progress) {
    AlignedProjects aligned;
    std::vector<std::unique_ptr<ProjectParts>> parts;
    parts.push_back(std::make_unique<ProjectParts>(project));
    for (std::size_t other = 0; other < others.size(); ++other) {
        progress.at(other, others.size() * 2);
        aligned.differences[other] = compareProjects(project, *others[other], scope);
        parts.push_back(std::make_unique<ProjectParts>(*others[other]));
    }
    Versions versions;
    for (const auto& version : parts)
        versions.push_back(version.get());
    RowList rows;
    for (std::size_t section = 0; section < ProjectParts::kSections; ++section) {
        if (scope == CompareScope::Whole || section == ProjectParts::Messages)
            SectionRows(versions, section, extent, rows)
                .run(progress.part(0.5 + 0.1 * static_cast<double>(section),
                                   0.6 + 0.1 * static_cast<double>(section)));
    }
    for (std::size_t other = 0; other < others.size(); ++other)
        rows.attach(aligned.differences[other], other);
    aligned.rows = extent == AlignedExtent::All ? rows.takeAll() : rows.takeDifferent(others.size());
    return aligned;
}

} // namespace zb
