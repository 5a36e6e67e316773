#include "compare/aligned_entry.h"

#include "compare/block_matching.h"
#include "compare/item_matching.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace zb {

static_assert(kNoNode == kNowhere && kNoBlock == kNowhere);

namespace {

using Role = AlignedRow::Role;
using EntryVersions = std::array<const Entry*, kMostVersions>; // null where it is missing

constexpr std::size_t kPartLevel = 1;

std::vector<std::size_t> allOf(std::size_t count) {
    std::vector<std::size_t> numbers(count);
    std::iota(numbers.begin(), numbers.end(), std::size_t{0});
    return numbers;
}

class PartRows {
public:
    PartRows(const PartForm& form, const EntryVersions& entries, std::size_t count, RowList& rows)
        : form_(form), entries_(entries), count_(count), rows_(rows) {}

    void run() {
        AlignedRow head{kPartLevel, Role::Part, {}, {}};
        RowPlaces places{form_.kind(), {}, {}};
        for (std::size_t version = 0; version < count_; ++version) {
            if (entries_[version] == nullptr)
                continue;
            head.texts[version] = headOf(*entries_[version]);
            places.places[version].name = entries_[version]->name;
        }
        rows_.add(std::move(head), places);
        addFields(kPartLevel + 1, entries_, {form_.kind(), places.places, {}});
        addParts();
        addItems();
    }

private:
    std::string headOf(const Entry& entry) const {
        if (entry.name.empty() && form_.kind() == PartKind::Message)
            return "(lines outside of messages)";
        return form_.shownHead(entry);
    }

    /// Whether the head of the part shows the field.
    bool isInHead(const std::string& key) const {
        return form_.kind() == PartKind::Message && key != "description" && key != "other";
    }

    void addFields(std::size_t level, const EntryVersions& entries, const RowPlaces& at) {
        std::vector<std::string> keys;
        for (const Entry* entry : entries) {
            for (const EntryField& field : entry == nullptr ? std::vector<EntryField>() : entry->fields) {
                if (std::find(keys.begin(), keys.end(), field.key) == keys.end())
                    keys.push_back(field.key);
            }
        }
        for (const std::string& key : keys)
            addField(level, key, entries, at);
    }

    void addField(std::size_t level, const std::string& key, const EntryVersions& entries,
                  const RowPlaces& at) {
        AlignedRow row{level, Role::Field, {}, {}};
        std::optional<std::string_view> first;
        bool differs = false;
        bool isEmpty = true;
        for (std::size_t version = 0; version < count_; ++version) {
            if (entries[version] == nullptr)
                continue;
            const EntryField* field = entries[version]->find(key);
            const std::string_view stored = entries[version]->stored(key);
            differs = differs || (first && *first != stored);
            first = stored;
            isEmpty = isEmpty && stored.empty();
            const std::string label = key == "description" ? "* " : key + ": ";
            row.texts[version] = label + (field == nullptr ? std::string() : field->value);
        }
        // A part that only some versions have shows what is in it.
        const bool isShown = differs || (!isEmpty && !isInHead(key));
        if (!isShown)
            return;
        RowPlaces places = at;
        places.field = key;
        rows_.add(std::move(row), places);
    }

    void addParts() {
        static const std::vector<Entry> kNone;
        const auto partsOf = [&](std::size_t version) -> const std::vector<Entry>& {
            return entries_[version] == nullptr ? kNone : entries_[version]->parts;
        };
        std::array<BlockMatching, kMostVersions> matchings;
        std::array<std::vector<std::size_t>, kMostVersions> lists;
        std::vector<OtherList> others;
        for (std::size_t version = 0; version < count_; ++version) {
            lists[version] = allOf(partsOf(version).size());
            if (version == 0)
                continue;
            matchings[version] = matchParts(partsOf(0), partsOf(version));
            others.push_back({lists[version], matchings[version].ofLeft, matchings[version].ofRight,
                              [&parts = partsOf(version)](std::size_t part) { return parts[part].name; }});
        }
        for (const UnitedPlaces& united : uniteLists(lists[0], others)) {
            AlignedRow row{kPartLevel + 1, Role::Item, {}, {}};
            RowPlaces places{PartKind::TrItem, {}, {}};
            EntryVersions versions{};
            for (std::size_t version = 0; version < count_; ++version) {
                if (united[version] == kNowhere)
                    continue;
                versions[version] = &partsOf(version)[united[version]];
                row.texts[version] = versions[version]->name;
                places.places[version] = {entries_[version]->name, versions[version]->name};
            }
            rows_.add(std::move(row), places);
            addFields(kPartLevel + 2, versions, places);
        }
    }

    const ItemTree& treeOf(std::size_t version) const {
        static const ItemTree kNone;
        return entries_[version] == nullptr ? kNone : entries_[version]->items;
    }

    void addItems() {
        const ItemNames names = form_.itemsHaveNames() ? ItemNames::Count : ItemNames::Ignored;
        for (std::size_t version = 1; version < count_; ++version)
            items_[version] = matchItems(treeOf(0), treeOf(version), names);
        // With a stack of its own: trees may have any depth.
        struct Task {
            UnitedPlaces nodes;
            std::size_t level;
        };
        std::vector<Task> tasks;
        const auto addChildren = [&](const UnitedPlaces& list, std::size_t level) {
            std::vector<UnitedPlaces> children = childrenOf(list);
            std::reverse(children.begin(), children.end());
            for (const UnitedPlaces& child : children)
                tasks.push_back({child, level});
        };
        addChildren({}, kPartLevel + 1); // the roots
        while (!tasks.empty()) {
            const Task task = tasks.back();
            tasks.pop_back();
            addItem(task.nodes, task.level);
            addChildren(task.nodes, task.level + 1);
        }
    }

    std::vector<UnitedPlaces> childrenOf(const UnitedPlaces& list) const {
        static const std::vector<std::size_t> kNone;
        const auto children = [&](std::size_t version) -> const std::vector<std::size_t>& {
            return list[version] == kNowhere ? kNone : treeOf(version).at(list[version]).children;
        };
        std::vector<OtherList> others;
        for (std::size_t version = 1; version < count_; ++version)
            others.push_back({children(version), items_[version].ofLeft, items_[version].ofRight,
                              [&tree = treeOf(version)](std::size_t node) { return tree.at(node).text; }});
        return uniteLists(children(0), others);
    }

    void addItem(const UnitedPlaces& nodes, std::size_t level) {
        AlignedRow row{level, Role::Item, {}, {}};
        RowPlaces places{form_.itemKind(), {}, {}};
        for (std::size_t version = 0; version < count_; ++version) {
            if (nodes[version] == kNowhere)
                continue;
            row.texts[version] = form_.shownItem(treeOf(version).at(nodes[version]).text);
            places.places[version] = {entries_[version]->name, treeOf(version).path(nodes[version])};
        }
        rows_.add(std::move(row), places);
    }

    const PartForm& form_;
    const EntryVersions& entries_;
    std::size_t count_; // of the versions
    RowList& rows_;
    std::array<ItemMatching, kMostVersions> items_;
};

} // namespace

void addRowsOfPart(const PartForm& form, const PartVersions& versions, std::size_t count, RowList& rows) {
    std::array<Entry, kMostVersions> read;
    EntryVersions entries{};
    std::vector<Entry*> present;
    for (std::size_t version = 0; version < count; ++version) {
        if (!versions[version])
            continue;
        if (version > 0 && versions[version] == versions[0]) {
            entries[version] = entries[0];
            continue;
        }
        read[version] = form.read(*versions[version]);
        entries[version] = &read[version];
        present.push_back(&read[version]);
    }
    form.align(present);
    PartRows(form, entries, count, rows).run();
}

} // namespace zb
