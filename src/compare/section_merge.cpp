#include "compare/section_merge.h"

#include "compare/block_matching.h"
#include "compare/entry_merge.h"
#include "compare/order_merge.h"

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

namespace zb {

namespace {

/// The versions of one part, and what becomes of it.
struct PartMerge {
    const Block* base = nullptr;
    const Block* ours = nullptr;
    const Block* theirs = nullptr;
    std::optional<std::string> text; ///< none when it is not in the merged section
    std::string name;
    std::vector<MergeConflict> conflicts; ///< their places get the name at the end
};

std::optional<std::string> shownIf(const Block* block) {
    return block == nullptr ? std::nullopt : std::optional(shownBlock(block->text));
}

class SectionMerge {
public:
    SectionMerge(const PartForm& form, const ThreeSections& sections, MergeContext& context)
        : form_(form), sections_(sections), context_(context) {}

    std::string run() {
        collect();
        for (PartMerge& part : parts_)
            decide(part);
        settleNames();
        for (const PartMerge& part : parts_)
            order_.survives.push_back(part.text.has_value());
        order_.orderedBy = [this](std::size_t element) -> std::string_view { return parts_[element].name; };
        order_.takesMove = [this](std::size_t element) {
            const PartMerge& part = parts_[element];
            return context_.takesStep({form_.kind(),
                                       ChangeKind::Moved,
                                       {part.base->name, {}},
                                       {part.theirs->name, {}},
                                       "position"});
        };
        const MergedOrder merged = mergeOrder(order_);
        for (const std::size_t element : merged.disputed)
            reportPlace(parts_[element]);
        collectConflicts();
        std::string text;
        for (const std::size_t element : merged.elements)
            text += *parts_[element].text;
        return text;
    }

private:
    void collectConflicts() {
        for (PartMerge& part : parts_) {
            const Block* known = part.ours != nullptr ? part.ours : part.theirs;
            for (MergeConflict& conflict : part.conflicts) {
                conflict.place.name = part.text || known == nullptr ? part.name : known->name;
                context_.conflicts.push_back(std::move(conflict));
            }
        }
    }

    void collect() {
        const BlockMatching toOurs = matchBlocks(form_, sections_.base, sections_.ours);
        const BlockMatching toTheirs = matchBlocks(form_, sections_.base, sections_.theirs);
        for (std::size_t at = 0; at < sections_.base.size(); ++at) {
            PartMerge& part = parts_.emplace_back();
            part.base = &sections_.base[at];
            if (toOurs.ofLeft[at] != kNoBlock)
                part.ours = &sections_.ours[toOurs.ofLeft[at]];
            if (toTheirs.ofLeft[at] != kNoBlock)
                part.theirs = &sections_.theirs[toTheirs.ofLeft[at]];
        }
        order_.baseCount = parts_.size();
        std::unordered_map<std::string, std::vector<std::size_t>> addedByUs;
        for (std::size_t at = 0; at < sections_.ours.size(); ++at) {
            const std::size_t partner = toOurs.ofRight[at];
            order_.ours.push_back(partner == kNoBlock ? parts_.size() : partner);
            if (partner != kNoBlock)
                continue;
            addedByUs[form_.nameKey(sections_.ours[at].name)].push_back(parts_.size());
            parts_.emplace_back().ours = &sections_.ours[at];
        }
        for (std::vector<std::size_t>* places : valuesOf(addedByUs))
            std::reverse(places->begin(), places->end());
        for (std::size_t at = 0; at < sections_.theirs.size(); ++at) {
            std::size_t element = toTheirs.ofRight[at];
            if (element == kNoBlock)
                element = elementOfAdded(addedByUs[form_.nameKey(sections_.theirs[at].name)]);
            parts_[element].theirs = &sections_.theirs[at];
            order_.theirs.push_back(element);
        }
    }

    static std::vector<std::vector<std::size_t>*>
    valuesOf(std::unordered_map<std::string, std::vector<std::size_t>>& places) {
        std::vector<std::vector<std::size_t>*> values;
        values.reserve(places.size());
        for (auto& [name, value] : places)
            values.push_back(&value);
        return values;
    }

    /// What both sides added under one name is one part.
    std::size_t elementOfAdded(std::vector<std::size_t>& ours) {
        if (ours.empty()) {
            parts_.emplace_back();
            return parts_.size() - 1;
        }
        const std::size_t element = ours.back();
        ours.pop_back();
        return element;
    }

    MergeStep stepOf(ChangeKind change, const Block& before, const Block& after) const {
        return {form_.kind(), change, {before.name, {}}, {after.name, {}}, {}};
    }

    void take(PartMerge& part, const Block& block) const {
        part.text = std::string(block.text);
        part.name = block.name;
    }

    void decide(PartMerge& part) {
        if (part.base == nullptr)
            return decideAdded(part);
        if (part.ours != nullptr && part.theirs != nullptr)
            return mergeBoth(part);
        if (part.ours == nullptr && part.theirs == nullptr)
            return;
        const bool isOurs = part.ours != nullptr;
        const Block& left = isOurs ? *part.ours : *part.theirs;
        bool stays = isOurs && !context_.takesStep(stepOf(ChangeKind::Removed, *part.base, *part.base));
        if (left.text != part.base->text) {
            report(part);
            stays = (context_.preferred == Preferred::Ours) == isOurs;
        }
        if (stays)
            take(part, left);
    }

    void decideAdded(PartMerge& part) {
        if (part.ours == nullptr) {
            if (context_.takesStep(stepOf(ChangeKind::Added, *part.theirs, *part.theirs)))
                take(part, *part.theirs);
            return;
        }
        const bool isDisputed = part.theirs != nullptr && part.theirs->text != part.ours->text;
        if (isDisputed)
            report(part);
        take(part, isDisputed && context_.preferred == Preferred::Theirs ? *part.theirs : *part.ours);
    }

    void mergeBoth(PartMerge& part) {
        const std::string_view base = part.base->text;
        const std::string_view ours = part.ours->text;
        const std::string_view theirs = part.theirs->text;
        if (ours == theirs || theirs == base)
            return take(part, *part.ours);
        if (ours == base && !context_.takes)
            return take(part, *part.theirs);
        bool changes = !context_.takes;
        MergeContext own{context_.preferred, {}, {}};
        if (context_.takes) {
            own.takes = [&](const MergeStep& step) {
                const bool takes = context_.takes(step);
                changes = changes || takes;
                return takes;
            };
        }
        const Entry merged = mergeEntries(form_, {base, ours, theirs}, own);
        std::move(own.conflicts.begin(), own.conflicts.end(), std::back_inserter(part.conflicts));
        if (!changes)
            return take(part, *part.ours);
        part.text = form_.write(merged);
        part.name = merged.name;
    }

    using PartsByName = std::map<std::string, std::vector<std::size_t>>;

    /// A name that only the merge gives to several parts is given to one: that of the preferred side, which
    /// had it first.
    void settleNames() {
        PartsByName byName;
        for (std::size_t at = 0; at < parts_.size(); ++at) {
            if (parts_[at].text)
                byName[form_.nameKey(parts_[at].name)].push_back(at);
        }
        std::vector<std::size_t> withoutName;
        for (const auto& [key, elements] : byName) {
            if (elements.size() > 1)
                settleName(key, elements, withoutName);
        }
        for (const std::size_t at : withoutName)
            giveFreeName(parts_[at], byName);
    }

    bool isNamed(const Block* block, const std::string& key) const {
        return block != nullptr && form_.nameKey(block->name) == key;
    }

    void settleName(const std::string& key, const std::vector<std::size_t>& elements,
                    std::vector<std::size_t>& withoutName) {
        std::size_t ours = 0;
        std::size_t theirs = 0;
        for (const std::size_t at : elements) {
            ours += isNamed(parts_[at].ours, key) ? 1U : 0U;
            theirs += isNamed(parts_[at].theirs, key) ? 1U : 0U;
        }
        std::size_t tooMany = elements.size() - std::min(elements.size(), std::max(ours, theirs));
        const bool oursCount = context_.preferred == Preferred::Ours;
        for (std::size_t at = 0; at < elements.size() && tooMany > 0; ++at) {
            PartMerge& part = parts_[elements[at]];
            const Block* kept = oursCount ? part.ours : part.theirs;
            if (isNamed(kept, key))
                continue;
            reportName(part);
            if (kept == nullptr)
                withoutName.push_back(elements[at]);
            else
                rename(part, kept->name);
            --tooMany;
        }
    }

    /// What the other side added under a name that is given away is kept under another one.
    void giveFreeName(PartMerge& part, PartsByName& byName) const {
        if (context_.takes || form_.kind() == PartKind::Project) {
            part.text.reset();
            return;
        }
        const std::string start = part.name + (context_.preferred == Preferred::Ours ? "_theirs" : "_ours");
        std::string name = start;
        for (int number = 2; byName.contains(form_.nameKey(name)); ++number)
            name = start + std::to_string(number);
        byName[form_.nameKey(name)];
        rename(part, name);
    }

    void rename(PartMerge& part, const std::string& name) const {
        Entry entry = form_.read(*part.text);
        entry.name = name;
        part.text = form_.write(entry);
        part.name = name;
    }

    void report(PartMerge& part) const {
        part.conflicts.push_back(
            {form_.kind(), {}, {}, shownIf(part.base), shownIf(part.ours), shownIf(part.theirs)});
    }

    void reportName(PartMerge& part) const {
        const auto nameIf = [](const Block* block) {
            return block == nullptr ? std::nullopt : std::optional(block->name);
        };
        part.conflicts.push_back(
            {form_.kind(), {}, "name", nameIf(part.base), nameIf(part.ours), nameIf(part.theirs)});
    }

    void reportPlace(PartMerge& part) const {
        if (part.base == nullptr)
            return;
        const auto placeIn = [](const Blocks& blocks, const Block* block) {
            return std::to_string(block - blocks.data() + 1);
        };
        part.conflicts.push_back({form_.kind(),
                                  {},
                                  "position",
                                  placeIn(sections_.base, part.base),
                                  placeIn(sections_.ours, part.ours),
                                  placeIn(sections_.theirs, part.theirs)});
    }

    const PartForm& form_;
    const ThreeSections& sections_;
    MergeContext& context_;
    std::vector<PartMerge> parts_;
    OrderMerge order_;
};

} // namespace

std::string mergeSections(const PartForm& form, const ThreeSections& sections, MergeContext& context) {
    return SectionMerge(form, sections, context).run();
}

} // namespace zb
