#include "compare/aligned_rows.h"

#include "compare/aligned_entry.h"
#include "compare/block_matching.h"
#include "compare/project_parts.h"
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

    std::vector<UnitedPlaces> unite() const {
        std::vector<std::vector<std::size_t>> lists(versions_.size());
        std::vector<BlockMatching> matchings(versions_.size());
        std::vector<OtherList> others;
        for (std::size_t version = 0; version < versions_.size(); ++version) {
            lists[version].resize(blocks(version).size());
            std::iota(lists[version].begin(), lists[version].end(), std::size_t{0});
            if (version == 0)
                continue;
            matchings[version] = matchBlocks(form_, blocks(0), blocks(version));
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
        if (!isSame || extent_ == AlignedExtent::All || moved(part))
            addRowsOfPart(form_, texts, versions_.size(), rows_);
    }

    bool moved(const UnitedPlaces& part) const {
        for (std::size_t version = 1; version < versions_.size(); ++version) {
            if (part[version] != part[0])
                return true;
        }
        return false;
    }

    const Versions& versions_;
    std::size_t section_;
    const PartForm& form_;
    AlignedExtent extent_;
    RowList& rows_;
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
