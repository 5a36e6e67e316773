#include "compare/item_comparison.h"

#include "compare/item_matching.h"
#include "compare/rising_run.h"
#include "messages/item_record.h"

#include <string>

namespace zb {

namespace {

struct ItemField {
    const char* key;
    std::string before;
    std::string after;
};

std::string countText(const SECSItemRecord& item) {
    return std::to_string(item.getCount()) + (item.isFixed() ? "" : "V");
}

std::vector<ItemField> fieldsOf(const std::string& before, const std::string& after) {
    SECSItemRecord left;
    SECSItemRecord right;
    left.parseText(before);
    right.parseText(after);
    return {{"name", left.getName(), right.getName()},
            {"type", left.getType(), right.getType()},
            {"count", countText(left), countText(right)},
            {"value", left.getValue(), right.getValue()},
            {"key", left.isKey() ? "true" : "false", right.isKey() ? "true" : "false"}};
}

class ItemComparison {
public:
    ItemComparison(const PartForm& form, const Entry& before, const Entry& after, Differences& differences)
        : form_(form), before_(before), after_(after), left_(before.items), right_(after.items),
          differences_(differences),
          matching_(matchItems(left_, right_, form.itemsHaveNames() ? ItemNames::Count : ItemNames::Ignored)),
          moved_(movedNodes()) {}

    void run() {
        const std::vector<std::vector<std::size_t>> removedAfter = removedNodes();
        for (std::size_t node = 0; node < right_.count(); ++node) {
            if (node != ItemTree::kRoot)
                takeNode(node);
            for (const std::size_t removed : removedAfter[node])
                add(ChangeKind::Removed, removed, kNoNode, {}, subtreeText(left_, removed), std::nullopt);
        }
    }

private:
    /// Nodes on the right that are in another list than before, or at another place of it.
    std::vector<bool> movedNodes() const {
        std::vector<bool> moved(right_.count(), false);
        for (std::size_t list = 0; list < right_.count(); ++list) {
            std::vector<std::size_t> stayed;
            std::vector<std::size_t> places;
            for (const std::size_t child : right_.at(list).children) {
                const std::size_t partner = matching_.ofRight[child];
                if (partner == kNoNode)
                    continue;
                moved[child] = left_.at(partner).parent != matching_.ofRight[list];
                if (moved[child])
                    continue;
                stayed.push_back(child);
                places.push_back(partner);
            }
            const std::vector<bool> rising = longestRising(places);
            for (std::size_t at = 0; at < stayed.size(); ++at)
                moved[stayed[at]] = !rising[at];
        }
        return moved;
    }

    /// For each node on the right the removed ones that were after its partner.
    std::vector<std::vector<std::size_t>> removedNodes() const {
        std::vector<std::vector<std::size_t>> removed(right_.count());
        std::size_t anchor = ItemTree::kRoot;
        for (std::size_t node = 1; node < left_.count(); ++node) {
            if (matching_.ofLeft[node] != kNoNode)
                anchor = matching_.ofLeft[node];
            else if (matching_.ofLeft[left_.at(node).parent] != kNoNode)
                removed[anchor].push_back(node); // those below it are part of its text
        }
        return removed;
    }

    void takeNode(std::size_t node) {
        const std::size_t partner = matching_.ofRight[node];
        if (partner == kNoNode) {
            if (matching_.ofRight[right_.at(node).parent] != kNoNode)
                add(ChangeKind::Added, kNoNode, node, {}, std::nullopt, subtreeText(right_, node));
            return;
        }
        if (moved_[node])
            add(ChangeKind::Moved, partner, node, "position", left_.path(partner), right_.path(node));
        if (left_.at(partner).text != right_.at(node).text)
            compareTexts(partner, node);
    }

    void compareTexts(std::size_t left, std::size_t right) {
        const std::string before = textWithoutFollowingCount(left_, left);
        const std::string after = textWithoutFollowingCount(right_, right);
        if (before == after)
            return;
        if (!form_.itemsHaveNames())
            return add(ChangeKind::Changed, left, right, "row", form_.shownItem(before),
                       form_.shownItem(after));
        const bool bothFollow = countFollowsItems(left_, left) && countFollowsItems(right_, right);
        bool reported = false;
        for (const ItemField& field : fieldsOf(left_.at(left).text, right_.at(right).text)) {
            const bool isCount = std::string_view(field.key) == "count";
            if (field.before == field.after || (isCount && bothFollow))
                continue;
            const bool isName = std::string_view(field.key) == "name";
            add(isName ? ChangeKind::Renamed : ChangeKind::Changed, left, right, field.key, field.before,
                field.after);
            reported = true;
        }
        if (!reported)
            add(ChangeKind::Changed, left, right, "text", left_.at(left).text, right_.at(right).text);
    }

    std::string subtreeText(const ItemTree& tree, std::size_t node) const {
        return form_.itemsHaveNames() ? tree.subtreeText(node) : form_.shownItem(tree.at(node).text);
    }

    void add(ChangeKind change, std::size_t left, std::size_t right, std::string field,
             std::optional<std::string> before, std::optional<std::string> after) {
        Difference difference;
        difference.kind = form_.itemKind();
        difference.change = change;
        if (left != kNoNode) {
            difference.placeBefore = {before_.name, left_.path(left)};
            difference.lineBefore = form_.shownItem(left_.at(left).text);
        }
        if (right != kNoNode) {
            difference.place = {after_.name, right_.path(right)};
            difference.lineAfter = form_.shownItem(right_.at(right).text);
        }
        if (left == kNoNode)
            difference.placeBefore = difference.place;
        if (right == kNoNode)
            difference.place = difference.placeBefore;
        difference.field = std::move(field);
        difference.before = std::move(before);
        difference.after = std::move(after);
        differences_.push_back(std::move(difference));
    }

    const PartForm& form_;
    const Entry& before_;
    const Entry& after_;
    const ItemTree& left_;
    const ItemTree& right_;
    Differences& differences_;
    ItemMatching matching_;
    std::vector<bool> moved_;
};

} // namespace

void compareItems(const PartForm& form, const Entry& before, const Entry& after, Differences& differences) {
    if (!(before.items == after.items))
        ItemComparison(form, before, after, differences).run();
}

} // namespace zb
