#include "compare/project_comparison.h"

#include "compare/block_matching.h"
#include "compare/entry_comparison.h"
#include "compare/project_parts.h"
#include "compare/rising_run.h"

#include <string>
#include <utility>

namespace zb {

namespace {

/// Compares the parts of one section.
class SectionComparison {
public:
    SectionComparison(const PartForm& form, const Blocks& before, const Blocks& after,
                      Differences& differences)
        : form_(form), before_(before), after_(after), differences_(differences),
          matching_(matchBlocks(form, before, after)) {}

    void run() {
        std::vector<std::vector<std::size_t>> removedAfter(after_.size() + 1);
        std::size_t anchor = 0;
        for (std::size_t left = 0; left < before_.size(); ++left) {
            if (matching_.ofLeft[left] == kNoBlock)
                removedAfter[anchor].push_back(left);
            else
                anchor = matching_.ofLeft[left] + 1;
        }
        std::vector<std::size_t> partners;
        for (const std::size_t partner : matching_.ofRight) {
            if (partner != kNoBlock)
                partners.push_back(partner);
        }
        const std::vector<bool> rising = longestRising(partners);
        std::size_t known = 0;
        for (std::size_t right = 0; right <= after_.size(); ++right) {
            for (const std::size_t left : removedAfter[right])
                addWhole(ChangeKind::Removed, before_[left]);
            if (right == after_.size())
                break;
            if (matching_.ofRight[right] == kNoBlock)
                addWhole(ChangeKind::Added, after_[right]);
            else
                comparePair(matching_.ofRight[right], right, rising[known++]);
        }
    }

private:
    void addWhole(ChangeKind change, const Block& block) {
        Difference difference;
        difference.kind = form_.kind();
        difference.change = change;
        difference.placeBefore.name = difference.place.name = block.name;
        (change == ChangeKind::Added ? difference.after : difference.before) = shownBlock(block.text);
        differences_.push_back(std::move(difference));
    }

    void comparePair(std::size_t left, std::size_t right, bool stayed) {
        const Block& before = before_[left];
        const Block& after = after_[right];
        if (!stayed) {
            Difference difference;
            difference.kind = form_.kind();
            difference.change = ChangeKind::Moved;
            difference.placeBefore.name = before.name;
            difference.place.name = after.name;
            difference.field = "position";
            difference.before = std::to_string(left + 1);
            difference.after = std::to_string(right + 1);
            differences_.push_back(std::move(difference));
        }
        if (before.text != after.text)
            compareEntries(form_, before.text, after.text, differences_);
    }

    const PartForm& form_;
    const Blocks& before_;
    const Blocks& after_;
    Differences& differences_;
    BlockMatching matching_;
};

} // namespace

Differences compareProjects(const Project& before, const Project& after, CompareScope scope) {
    Differences differences;
    const bool whole = scope == CompareScope::Whole;
    if (whole && before.side != after.side) {
        Difference difference;
        difference.kind = PartKind::Project;
        difference.field = "side";
        difference.before = wordOf(before.side);
        difference.after = wordOf(after.side);
        differences.push_back(std::move(difference));
    }
    const ProjectParts left(before);
    const ProjectParts right(after);
    for (std::size_t section = 0; section < ProjectParts::kSections; ++section) {
        if (whole || section == ProjectParts::Messages)
            SectionComparison(ProjectParts::form(section), left.blocks(section), right.blocks(section),
                              differences)
                .run();
    }
    return differences;
}

} // namespace zb
