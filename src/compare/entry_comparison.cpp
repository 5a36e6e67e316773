#include "compare/entry_comparison.h"

#include "compare/block_matching.h"
#include "compare/item_comparison.h"
#include "compare/rising_run.h"

#include <string>
#include <utility>

namespace zb {

namespace {

/// Compares two versions of one part, and the parts of them.
class EntryComparison {
public:
    EntryComparison(const PartForm& form, const Entry& before, const Entry& after, Differences& differences)
        : form_(form), before_(before), after_(after), differences_(differences) {}

    void run() {
        if (before_.name != after_.name)
            add(form_.kind(), ChangeKind::Renamed, {}, {}, "name", before_.name, after_.name);
        compareFields(form_.kind(), {}, {}, before_, after_);
        compareParts();
        compareItems(form_, before_, after_, differences_);
    }

private:
    void compareFields(PartKind kind, const std::string& pathBefore, const std::string& path,
                       const Entry& before, const Entry& after) {
        for (const EntryField& field : before.fields) {
            const EntryField* other = after.find(field.key);
            if ((other == nullptr ? std::string() : other->stored) != field.stored)
                add(kind, ChangeKind::Changed, pathBefore, path, field.key, field.value,
                    other == nullptr ? std::string() : other->value);
        }
        for (const EntryField& field : after.fields) {
            if (before.find(field.key) == nullptr && !field.stored.empty())
                add(kind, ChangeKind::Changed, pathBefore, path, field.key, std::string(), field.value);
        }
    }

    void compareParts() {
        const BlockMatching matching = matchParts(before_.parts, after_.parts);
        std::vector<std::size_t> partners;
        for (std::size_t left = 0; left < before_.parts.size(); ++left) {
            const Entry& part = before_.parts[left];
            if (matching.ofLeft[left] == kNoBlock)
                add(PartKind::TrItem, ChangeKind::Removed, part.name, part.name, {}, shownPart(part),
                    std::nullopt);
        }
        for (std::size_t right = 0; right < after_.parts.size(); ++right) {
            if (matching.ofRight[right] != kNoBlock)
                partners.push_back(matching.ofRight[right]);
        }
        const std::vector<bool> rising = longestRising(partners);
        for (std::size_t right = 0, known = 0; right < after_.parts.size(); ++right) {
            const Entry& part = after_.parts[right];
            if (matching.ofRight[right] == kNoBlock)
                add(PartKind::TrItem, ChangeKind::Added, part.name, part.name, {}, std::nullopt,
                    shownPart(part));
            else
                comparePart(matching.ofRight[right], right, rising[known++]);
        }
    }

    void comparePart(std::size_t left, std::size_t right, bool stayed) {
        const Entry& before = before_.parts[left];
        const Entry& after = after_.parts[right];
        if (before.name != after.name)
            add(PartKind::TrItem, ChangeKind::Renamed, before.name, after.name, "name", before.name,
                after.name);
        if (!stayed)
            add(PartKind::TrItem, ChangeKind::Moved, before.name, after.name, "position",
                std::to_string(left + 1), std::to_string(right + 1));
        compareFields(PartKind::TrItem, before.name, after.name, before, after);
    }

    void add(PartKind kind, ChangeKind change, const std::string& pathBefore, const std::string& path,
             std::string field, std::optional<std::string> before, std::optional<std::string> after) {
        Difference difference;
        difference.kind = kind;
        difference.change = change;
        difference.placeBefore = {before_.name, pathBefore};
        difference.place = {after_.name, path};
        difference.field = std::move(field);
        difference.before = std::move(before);
        difference.after = std::move(after);
        if (kind == form_.kind()) {
            difference.lineBefore = form_.shownHead(before_);
            difference.lineAfter = form_.shownHead(after_);
        }
        differences_.push_back(std::move(difference));
    }

    const PartForm& form_;
    const Entry& before_;
    const Entry& after_;
    Differences& differences_;
};

} // namespace

void compareEntries(const PartForm& form, std::string_view before, std::string_view after,
                    Differences& differences) {
    Entry left = form.read(before);
    Entry right = form.read(after);
    form.align({&left, &right});
    const std::size_t first = differences.size();
    EntryComparison(form, left, right, differences).run();
    const std::string heading = form.shownHead(right);
    for (std::size_t at = first; at < differences.size(); ++at)
        differences[at].heading = heading;
}

} // namespace zb
