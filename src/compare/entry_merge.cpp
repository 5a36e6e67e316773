#include "compare/entry_merge.h"

#include "compare/block_matching.h"
#include "compare/item_merge.h"
#include "compare/order_merge.h"

#include <map>
#include <optional>
#include <utility>

namespace zb {

namespace {

/// The versions of a TR item; null where it is missing.
struct PartVersions {
    const Entry* base = nullptr;
    const Entry* ours = nullptr;
    const Entry* theirs = nullptr;
};

bool isSame(const Entry& one, const Entry& other) {
    if (one.name != other.name || one.fields.size() != other.fields.size())
        return false;
    for (const EntryField& field : one.fields) {
        if (other.stored(field.key) != field.stored)
            return false;
    }
    return true;
}

class EntryMerge {
public:
    EntryMerge(const PartForm& form, const ThreeEntries& entries, MergeContext& context)
        : form_(form), base_(entries.base), ours_(entries.ours), theirs_(entries.theirs), context_(context) {}

    Entry run() {
        const bool isDisputed = isDataBlockDisputed();
        Entry merged = mergeFields(form_.kind(), {}, {}, {&base_, &ours_, &theirs_}, isDisputed);
        if (isDisputed) {
            context_.conflicts.push_back({form_.kind(),
                                          {},
                                          "block",
                                          writtenDataBlock(base_),
                                          writtenDataBlock(ours_),
                                          writtenDataBlock(theirs_)});
            takeDataBlock(merged, context_.preferred == Preferred::Ours ? ours_ : theirs_);
        } else {
            merged.items = mergeItems(form_, {base_, ours_, theirs_}, context_);
        }
        merged.parts = mergeParts();
        return merged;
    }

private:
    /// The name and the fields; the paths are those of the part on each side.
    Entry mergeFields(PartKind kind, const std::string& pathBefore, const std::string& path,
                      const PartVersions& versions, bool exceptDataBlock = false) {
        const auto nameOf = [](const Entry& entry) { return EntryField{"name", entry.name, entry.name}; };
        const EntryField baseName = nameOf(*versions.base);
        const EntryField ourName = nameOf(*versions.ours);
        const EntryField theirName = nameOf(*versions.theirs);
        const auto choose = [&](const EntryField& base, const EntryField& ours,
                                const EntryField& theirs) -> const EntryField& {
            if (ours.stored == theirs.stored || theirs.stored == base.stored ||
                (exceptDataBlock && ours.key.starts_with("data")))
                return ours;
            const bool isName = &base == &baseName;
            if (ours.stored == base.stored) {
                const MergeStep step{kind,
                                     isName ? ChangeKind::Renamed : ChangeKind::Changed,
                                     {base_.name, pathBefore},
                                     {theirs_.name, path},
                                     base.key};
                return context_.takesStep(step) ? theirs : ours;
            }
            context_.conflicts.push_back(
                {kind, {}, base.key, writtenField(base), writtenField(ours), writtenField(theirs)});
            return context_.preferred == Preferred::Ours ? ours : theirs;
        };
        Entry merged;
        const std::size_t first = context_.conflicts.size();
        merged.name = choose(baseName, ourName, theirName).stored;
        for (const EntryField& field : versions.ours->fields) {
            const EntryField empty{field.key, {}, {}};
            const EntryField* base = versions.base->find(field.key);
            const EntryField* theirs = versions.theirs->find(field.key);
            merged.fields.push_back(
                choose(base == nullptr ? empty : *base, field, theirs == nullptr ? empty : *theirs));
        }
        for (std::size_t at = first; at < context_.conflicts.size() && kind == PartKind::TrItem; ++at)
            context_.conflicts[at].place.path = merged.name;
        return merged;
    }

    /// One side removed the data block that the other one changed.
    bool isDataBlockDisputed() const {
        if (form_.kind() != PartKind::TrMessage || base_.stored("data").empty())
            return false;
        const bool inOurs = !ours_.stored("data").empty();
        const bool inTheirs = !theirs_.stored("data").empty();
        const Entry& other = inOurs ? ours_ : theirs_;
        return inOurs != inTheirs && writtenDataBlock(other) != writtenDataBlock(base_);
    }

    std::vector<Entry> mergeParts() {
        std::vector<PartVersions> versions;
        OrderMerge order;
        collect(versions, order);
        std::vector<Entry> merged(versions.size());
        for (std::size_t element = 0; element < versions.size(); ++element) {
            std::optional<Entry> part = mergePart(versions[element]);
            order.survives.push_back(part.has_value());
            if (part)
                merged[element] = std::move(*part);
        }
        order.orderedBy = [&](std::size_t element) -> std::string_view { return merged[element].name; };
        order.takesMove = [&](std::size_t element) {
            const PartVersions& part = versions[element];
            return context_.takesStep({PartKind::TrItem,
                                       ChangeKind::Moved,
                                       {base_.name, part.base->name},
                                       {theirs_.name, part.theirs->name},
                                       "position"});
        };
        const MergedOrder mergedOrder = mergeOrder(order);
        for (const std::size_t element : mergedOrder.disputed)
            reportPlace(versions[element], merged[element].name);
        std::vector<Entry> parts;
        for (const std::size_t element : mergedOrder.elements)
            parts.push_back(std::move(merged[element]));
        return parts;
    }

    void collect(std::vector<PartVersions>& versions, OrderMerge& order) const {
        const BlockMatching toOurs = matchParts(base_.parts, ours_.parts);
        const BlockMatching toTheirs = matchParts(base_.parts, theirs_.parts);
        for (std::size_t part = 0; part < base_.parts.size(); ++part) {
            const auto versionOf = [part](const BlockMatching& matching, const std::vector<Entry>& parts) {
                return matching.ofLeft[part] == kNoBlock ? nullptr : &parts[matching.ofLeft[part]];
            };
            versions.push_back(
                {&base_.parts[part], versionOf(toOurs, ours_.parts), versionOf(toTheirs, theirs_.parts)});
        }
        order.baseCount = versions.size();
        std::map<std::string_view, std::size_t> addedByUs;
        for (std::size_t part = 0; part < ours_.parts.size(); ++part) {
            const std::size_t partner = toOurs.ofRight[part];
            order.ours.push_back(partner == kNoBlock ? versions.size() : partner);
            if (partner != kNoBlock)
                continue;
            addedByUs.emplace(ours_.parts[part].name, versions.size());
            versions.push_back({nullptr, &ours_.parts[part], nullptr});
        }
        for (std::size_t part = 0; part < theirs_.parts.size(); ++part) {
            const std::size_t partner = toTheirs.ofRight[part];
            const auto known = addedByUs.find(theirs_.parts[part].name);
            if (partner == kNoBlock && known != addedByUs.end())
                versions[known->second].theirs = &theirs_.parts[part];
            else if (partner == kNoBlock)
                versions.push_back({nullptr, nullptr, &theirs_.parts[part]});
            order.theirs.push_back(partner != kNoBlock        ? partner
                                   : known != addedByUs.end() ? known->second
                                                              : versions.size() - 1);
        }
    }

    std::optional<Entry> mergePart(const PartVersions& part) {
        if (part.base == nullptr)
            return mergeAdded(part);
        if (part.ours != nullptr && part.theirs != nullptr)
            return mergeFields(PartKind::TrItem, part.base->name, part.theirs->name, part);
        if (part.ours == nullptr && part.theirs == nullptr)
            return std::nullopt;
        const Entry& left = part.ours != nullptr ? *part.ours : *part.theirs;
        const bool isOurs = part.ours != nullptr;
        if (isSame(left, *part.base)) {
            const DifferencePlace place{base_.name, part.base->name};
            const bool removes =
                !isOurs || context_.takesStep({PartKind::TrItem, ChangeKind::Removed, place, place, {}});
            return removes ? std::nullopt : std::optional(left);
        }
        reportPart(part, left.name);
        return (context_.preferred == Preferred::Ours) == isOurs ? std::optional(left) : std::nullopt;
    }

    std::optional<Entry> mergeAdded(const PartVersions& part) {
        if (part.theirs == nullptr)
            return *part.ours;
        if (part.ours == nullptr) {
            const DifferencePlace place{theirs_.name, part.theirs->name};
            const bool takes = context_.takesStep({PartKind::TrItem, ChangeKind::Added, place, place, {}});
            return takes ? std::optional(*part.theirs) : std::nullopt;
        }
        if (!isSame(*part.ours, *part.theirs))
            reportPart(part, part.ours->name);
        return context_.preferred == Preferred::Ours ? *part.ours : *part.theirs;
    }

    void reportPart(const PartVersions& part, const std::string& path) {
        const auto written = [](const Entry* entry) {
            return entry == nullptr ? std::nullopt : std::optional(writtenPart(*entry));
        };
        context_.conflicts.push_back(
            {PartKind::TrItem, {{}, path}, {}, written(part.base), written(part.ours), written(part.theirs)});
    }

    void reportPlace(const PartVersions& part, const std::string& path) {
        if (part.base == nullptr || part.ours == nullptr || part.theirs == nullptr)
            return;
        const auto placeIn = [](const Entry& message, const Entry* item) {
            return std::to_string(item - message.parts.data() + 1);
        };
        context_.conflicts.push_back({PartKind::TrItem,
                                      {{}, path},
                                      "position",
                                      placeIn(base_, part.base),
                                      placeIn(ours_, part.ours),
                                      placeIn(theirs_, part.theirs)});
    }

    const PartForm& form_;
    const Entry& base_;
    const Entry& ours_;
    const Entry& theirs_;
    MergeContext& context_;
};

} // namespace

Entry mergeEntries(const PartForm& form, const ThreeBlocks& blocks, MergeContext& context) {
    Entry base = form.read(blocks.base);
    Entry ours = form.read(blocks.ours);
    Entry theirs = form.read(blocks.theirs);
    form.align({&base, &ours, &theirs});
    return EntryMerge(form, {base, ours, theirs}, context).run();
}

} // namespace zb
