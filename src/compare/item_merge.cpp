#include "compare/item_merge.h"

#include "compare/item_matching.h"
#include "compare/order_merge.h"
#include "messages/item_names.h"
#include "messages/item_record.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace zb {

namespace {

/// The nodes of one item in the three trees; kNoNode where it is missing.
struct ItemNodes {
    std::size_t base = kNoNode;
    std::size_t ours = kNoNode;
    std::size_t theirs = kNoNode;
};

class ItemMerge {
public:
    ItemMerge(const PartForm& form, const ThreeEntries& entries, MergeContext& context)
        : form_(form), entries_(entries), base_(entries.base.items), ours_(entries.ours.items),
          theirs_(entries.theirs.items), context_(context), toOurs_(matchItems(base_, ours_, names())),
          toTheirs_(matchItems(base_, theirs_, names())), baseHashes_(subtreeHashes(base_)),
          ourHashes_(subtreeHashes(ours_)), theirHashes_(subtreeHashes(theirs_)) {}

    ItemTree run() {
        // With a stack of its own: trees may have any depth. Each list is complete before its next sibling.
        struct Task {
            ItemNodes nodes;
            std::size_t parent;
        };
        std::vector<Task> tasks;
        const auto addChildren = [&](const ItemNodes& nodes, std::size_t parent) {
            std::vector<ItemNodes> children = mergeChildren(nodes, parent);
            std::reverse(children.begin(), children.end());
            for (const ItemNodes& child : children)
                tasks.push_back({child, parent});
        };
        addChildren({ItemTree::kRoot, ItemTree::kRoot, ItemTree::kRoot}, ItemTree::kRoot);
        while (!tasks.empty()) {
            const Task task = tasks.back();
            tasks.pop_back();
            const std::size_t first = context_.conflicts.size();
            const std::size_t node = merged_.add(task.parent, mergeText(task.nodes));
            for (std::size_t at = first; at < context_.conflicts.size(); ++at)
                context_.conflicts[at].place.path = merged_.path(node);
            addChildren(task.nodes, node);
        }
        for (std::size_t node = 1; node < merged_.count(); ++node)
            merged_.setText(node, textWithCount(merged_.at(node).text, merged_.at(node).children.size()));
        return std::move(merged_);
    }

private:
    ItemNames names() const { return form_.itemsHaveNames() ? ItemNames::Count : ItemNames::Ignored; }

    DifferencePlace basePlace(std::size_t node) const { return {entries_.base.name, base_.path(node)}; }
    DifferencePlace theirPlace(std::size_t node) const { return {entries_.theirs.name, theirs_.path(node)}; }

    std::string shown(const ItemTree& tree, std::size_t node) const {
        return form_.itemsHaveNames() ? tree.subtreeText(node) : form_.shownItem(tree.at(node).text);
    }
    std::optional<std::string> shownIf(const ItemTree& tree, std::size_t node) const {
        return node == kNoNode ? std::nullopt : std::optional(shown(tree, node));
    }

    /// Both sides changed the item as a whole, or one changed what the other removed.
    void reportWhole(const ItemNodes& nodes) {
        MergeConflict conflict;
        conflict.kind = form_.itemKind();
        conflict.base = shownIf(base_, nodes.base);
        conflict.ours = shownIf(ours_, nodes.ours);
        conflict.theirs = shownIf(theirs_, nodes.theirs);
        context_.conflicts.push_back(std::move(conflict));
    }

    /// The Text of an item, in which a count that follows its sub items is left open.
    std::string mergeText(const ItemNodes& nodes) {
        std::string ours =
            nodes.ours == kNoNode ? std::string() : textWithoutFollowingCount(ours_, nodes.ours);
        std::string theirs =
            nodes.theirs == kNoNode ? std::string() : textWithoutFollowingCount(theirs_, nodes.theirs);
        if (nodes.theirs == kNoNode)
            return ours;
        if (nodes.ours == kNoNode)
            return theirs;
        const std::string base =
            nodes.base == kNoNode ? std::string() : textWithoutFollowingCount(base_, nodes.base);
        if (ours == theirs || theirs == base)
            return ours;
        if (ours == base) {
            const MergeStep step{
                form_.itemKind(), ChangeKind::Changed, basePlace(nodes.base), theirPlace(nodes.theirs), {}};
            return context_.takesStep(step) ? theirs : ours;
        }
        MergeConflict conflict;
        conflict.kind = form_.itemKind();
        conflict.field = "text";
        conflict.base = form_.shownItem(base_.at(nodes.base).text);
        conflict.ours = form_.shownItem(ours_.at(nodes.ours).text);
        conflict.theirs = form_.shownItem(theirs_.at(nodes.theirs).text);
        context_.conflicts.push_back(std::move(conflict));
        return context_.preferred == Preferred::Ours ? ours : theirs;
    }

    /// The partner of a base node, where it is still in the same list.
    static std::size_t partnerInList(const ItemMatching& matching, const ItemTree& tree, std::size_t node,
                                     std::size_t list) {
        const std::size_t partner = matching.ofLeft[node];
        return list != kNoNode && partner != kNoNode && tree.at(partner).parent == list ? partner : kNoNode;
    }

    /// Sub items of `list` that are none of the base's list.
    std::vector<std::size_t> added(const ItemMatching& matching, const ItemTree& tree, std::size_t list,
                                   std::size_t baseList) const {
        std::vector<std::size_t> nodes;
        if (list == kNoNode)
            return nodes;
        for (const std::size_t child : tree.at(list).children) {
            const std::size_t partner = matching.ofRight[child];
            if (baseList == kNoNode || partner == kNoNode || base_.at(partner).parent != baseList)
                nodes.push_back(child);
        }
        return nodes;
    }

    /// The sub items of a list that is in the merged tree already.
    std::vector<ItemNodes> mergeChildren(const ItemNodes& list, std::size_t mergedList) {
        std::vector<ItemNodes> elements;
        if (list.base != kNoNode) {
            for (const std::size_t child : base_.at(list.base).children)
                elements.push_back({child, partnerInList(toOurs_, ours_, child, list.ours),
                                    partnerInList(toTheirs_, theirs_, child, list.theirs)});
        }
        const std::size_t baseCount = elements.size();
        for (const std::size_t node : added(toOurs_, ours_, list.ours, list.base))
            elements.push_back({kNoNode, node, kNoNode});
        joinAdded(elements, baseCount, added(toTheirs_, theirs_, list.theirs, list.base));
        OrderMerge order;
        order.baseCount = baseCount;
        order.ours = listOrder(elements, &ItemNodes::ours);
        order.theirs = listOrder(elements, &ItemNodes::theirs);
        ReportedElements reported;
        for (ItemNodes& nodes : elements) {
            const std::size_t first = context_.conflicts.size();
            order.survives.push_back(decide(nodes, list));
            if (first < context_.conflicts.size())
                reported.emplace_back(first, order.survives.size() - 1);
        }
        order.orderedBy = [&](std::size_t element) -> std::string_view {
            const ItemNodes& nodes = elements[element];
            return nodes.ours != kNoNode ? ours_.at(nodes.ours).text : theirs_.at(nodes.theirs).text;
        };
        order.takesMove = [&](std::size_t element) {
            const ItemNodes& nodes = elements[element];
            return context_.takesStep({form_.itemKind(), ChangeKind::Moved, basePlace(nodes.base),
                                       theirPlace(nodes.theirs), "position"});
        };
        const MergedOrder merged = mergeOrder(order);
        for (const std::size_t element : merged.disputed) {
            const std::size_t first = context_.conflicts.size();
            reportPlace(elements[element]);
            if (first < context_.conflicts.size())
                reported.emplace_back(first, element);
        }
        placeConflicts(reported, order, merged.elements, mergedList);
        std::vector<ItemNodes> children;
        for (const std::size_t element : merged.elements)
            children.push_back(elements[element]);
        return children;
    }

    /// Conflicts by their numbers, each with the element of a list that it is about.
    using ReportedElements = std::vector<std::pair<std::size_t, std::size_t>>;

    /// Gives the conflicts their places in the merged list. That of an element that is not in it is after the
    /// element that it follows on its side.
    void placeConflicts(const ReportedElements& reported, const OrderMerge& order,
                        const std::vector<std::size_t>& merged, std::size_t mergedList) {
        const std::string start = mergedList == ItemTree::kRoot ? "" : merged_.path(mergedList) + "/";
        const auto positionOf = [&merged](std::size_t element) {
            const auto found = std::find(merged.begin(), merged.end(), element);
            return found == merged.end() ? 0 : static_cast<std::size_t>(found - merged.begin()) + 1;
        };
        for (const auto& [conflict, element] : reported) {
            std::size_t position = positionOf(element);
            if (position == 0) {
                const auto& side = contains(order.ours, element) ? order.ours : order.theirs;
                for (auto at = std::find(side.begin(), side.end(), element);
                     at != side.begin() && position == 0;)
                    position = positionOf(*--at);
                ++position;
            }
            context_.conflicts[conflict].place.path = start + std::to_string(position);
        }
    }

    static bool contains(const std::vector<std::size_t>& list, std::size_t element) {
        return std::find(list.begin(), list.end(), element) != list.end();
    }

    /// What both sides added under one name, or alike, is one item.
    void joinAdded(std::vector<ItemNodes>& elements, std::size_t first,
                   const std::vector<std::size_t>& theirs) const {
        std::multimap<std::uint64_t, std::size_t> byHash;
        std::map<std::string_view, std::size_t> byName;
        for (std::size_t at = first; at < elements.size(); ++at) {
            byHash.emplace(ourHashes_[elements[at].ours], at);
            byName.emplace(itemNameInText(ours_.at(elements[at].ours).text), at);
        }
        for (const std::size_t node : theirs) {
            auto partner = elements.size();
            if (const auto equal = byHash.find(theirHashes_[node]); equal != byHash.end()) {
                partner = equal->second;
                byHash.erase(equal);
            } else if (form_.itemsHaveNames()) {
                const std::string_view name = itemNameInText(theirs_.at(node).text);
                const auto named = name.empty() ? byName.end() : byName.find(name);
                if (named != byName.end())
                    partner = named->second;
            }
            if (partner < elements.size() && elements[partner].theirs == kNoNode)
                elements[partner].theirs = node;
            else
                elements.push_back({kNoNode, kNoNode, node});
        }
    }

    static std::vector<std::size_t> listOrder(const std::vector<ItemNodes>& elements,
                                              std::size_t ItemNodes::*side) {
        std::vector<std::pair<std::size_t, std::size_t>> nodes;
        for (std::size_t element = 0; element < elements.size(); ++element) {
            if (elements[element].*side != kNoNode)
                nodes.emplace_back(elements[element].*side, element);
        }
        // Nodes are numbered in their order.
        std::sort(nodes.begin(), nodes.end());
        std::vector<std::size_t> order;
        order.reserve(nodes.size());
        for (const auto& [node, element] : nodes)
            order.push_back(element);
        return order;
    }

    /// Whether the item is in the merged tree; sets the nodes that it is made of.
    bool decide(ItemNodes& nodes, const ItemNodes& list) {
        const bool inOurs = nodes.ours != kNoNode;
        const bool inTheirs = nodes.theirs != kNoNode;
        if (nodes.base == kNoNode)
            return decideAdded(nodes, list);
        // Where a whole list is on one side only, so are its items.
        if (list.ours == kNoNode || list.theirs == kNoNode)
            return inOurs || inTheirs;
        if (inOurs && inTheirs)
            return true;
        if (!inOurs && !inTheirs)
            return false;
        if (inOurs && ourHashes_[nodes.ours] == baseHashes_[nodes.base])
            return !context_.takesStep(
                {form_.itemKind(), ChangeKind::Removed, basePlace(nodes.base), basePlace(nodes.base), {}});
        if (inTheirs && theirHashes_[nodes.theirs] == baseHashes_[nodes.base])
            return false;
        reportWhole(nodes);
        return context_.preferred == Preferred::Ours ? inOurs : inTheirs;
    }

    bool decideAdded(ItemNodes& nodes, const ItemNodes& list) {
        if (nodes.ours == kNoNode)
            return list.ours == kNoNode || context_.takesStep({form_.itemKind(),
                                                               ChangeKind::Added,
                                                               theirPlace(nodes.theirs),
                                                               theirPlace(nodes.theirs),
                                                               {}});
        if (nodes.theirs == kNoNode)
            return true;
        if (ourHashes_[nodes.ours] != theirHashes_[nodes.theirs])
            reportWhole(nodes);
        // One side's item with all below it.
        (context_.preferred == Preferred::Ours ? nodes.theirs : nodes.ours) = kNoNode;
        return true;
    }

    void reportPlace(const ItemNodes& nodes) {
        if (nodes.ours == kNoNode || nodes.theirs == kNoNode || nodes.base == kNoNode)
            return;
        MergeConflict conflict;
        conflict.kind = form_.itemKind();
        conflict.field = "position";
        conflict.base = base_.path(nodes.base);
        conflict.ours = ours_.path(nodes.ours);
        conflict.theirs = theirs_.path(nodes.theirs);
        context_.conflicts.push_back(std::move(conflict));
    }

    const PartForm& form_;
    const ThreeEntries& entries_;
    const ItemTree& base_;
    const ItemTree& ours_;
    const ItemTree& theirs_;
    MergeContext& context_;
    ItemMatching toOurs_;
    ItemMatching toTheirs_;
    std::vector<std::uint64_t> baseHashes_;
    std::vector<std::uint64_t> ourHashes_;
    std::vector<std::uint64_t> theirHashes_;
    ItemTree merged_;
};

/// Names that are more than once in a message, and key items after the first one.
std::size_t faultsOf(const ItemTree& tree) {
    std::map<std::string_view, std::size_t> names;
    std::size_t faults = 0;
    std::size_t keys = 0;
    for (std::size_t node = 1; node < tree.count(); ++node) {
        const std::string& text = tree.at(node).text;
        const std::string_view name = itemNameInText(text);
        if (!name.empty() && ++names[name] > 1)
            ++faults;
        SECSItemRecord item;
        item.parseText(text);
        if (item.isKey() && ++keys > 1)
            ++faults;
    }
    return faults;
}

} // namespace

ItemTree mergeItems(const PartForm& form, const ThreeEntries& entries, MergeContext& context) {
    const ItemTree& base = entries.base.items;
    const ItemTree& ours = entries.ours.items;
    const ItemTree& theirs = entries.theirs.items;
    if (ours == theirs || theirs == base)
        return ours;
    if (ours == base && !context.takes)
        return theirs;
    MergeContext own{context.preferred, context.takes, {}};
    ItemTree merged = ItemMerge(form, entries, own).run();
    // The sides may have faults, but the merge must add none.
    if (form.itemsHaveNames() && !context.takes &&
        faultsOf(merged) > std::max(faultsOf(ours), faultsOf(theirs))) {
        MergeConflict conflict;
        conflict.kind = form.kind();
        conflict.field = "items";
        conflict.base = shownItems(base);
        conflict.ours = shownItems(ours);
        conflict.theirs = shownItems(theirs);
        context.conflicts.push_back(std::move(conflict));
        return context.preferred == Preferred::Ours ? ours : theirs;
    }
    std::move(own.conflicts.begin(), own.conflicts.end(), std::back_inserter(context.conflicts));
    return merged;
}

} // namespace zb
