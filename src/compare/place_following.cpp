#include "compare/place_following.h"

#include "compare/block_matching.h"
#include "compare/item_lines.h"
#include "compare/item_matching.h"
#include "compare/project_parts.h"
#include "compare/single_part_value.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace zb {

namespace {

/// A path as the list and the position in it.
struct ListPlace {
    std::string list;
    std::size_t position = 0;
};

ListPlace listPlaceOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return {slash == std::string::npos ? std::string() : path.substr(0, slash), numberOfPosition(path)};
}

/// The places in one part.
class EntryFollowing {
public:
    EntryFollowing(const PartForm& form, const Entry& before, const Entry& after)
        : before_(before.items), after_(after.items), beforeParts_(before.parts), afterParts_(after.parts),
          matching_(
              matchItems(before_, after_, form.itemsHaveNames() ? ItemNames::Count : ItemNames::Ignored)) {}

    void follow(ValuePlace& place) const {
        std::string& path = place.place.path;
        const auto part = std::find_if(beforeParts_.begin(), beforeParts_.end(),
                                       [&](const Entry& item) { return item.name == path; });
        if (place.kind == PartKind::TrItem && part != beforeParts_.end())
            followPart(path, static_cast<std::size_t>(part - beforeParts_.begin()));
        else if (path.find_first_not_of("0123456789/") == std::string::npos)
            followItem(place);
    }

private:
    void followPart(std::string& path, std::size_t part) const {
        const BlockMatching matching = matchParts(beforeParts_, afterParts_);
        if (matching.ofLeft[part] != kNoBlock)
            path = afterParts_[matching.ofLeft[part]].name;
    }

    void followItem(ValuePlace& place) const {
        const auto node = place.isMissing ? std::nullopt : ItemLines::find(before_, place.place.path);
        if (node && matching_.ofLeft[*node] != kNoNode) {
            place.place.path = after_.path(matching_.ofLeft[*node]);
            return;
        }
        const ListPlace was = listPlaceOf(place.place.path);
        const auto list = ItemLines::find(before_, was.list);
        const std::size_t listNow = list ? matching_.ofLeft[*list] : kNoNode;
        if (listNow == kNoNode)
            return;
        const std::size_t position = positionAfter(before_.at(*list).children, was.position, listNow);
        const std::string start = listNow == ItemTree::kRoot ? "" : after_.path(listNow) + "/";
        place.place.path = start + std::to_string(position);
        const std::vector<std::size_t>& items = after_.at(listNow).children;
        const bool isNew = position <= items.size() && matching_.ofRight[items[position - 1]] == kNoNode;
        place.isMissing = !isNew;
    }

    /// After the nearest item before this position that is still in the list.
    std::size_t positionAfter(const std::vector<std::size_t>& items, std::size_t position,
                              std::size_t listNow) const {
        const std::vector<std::size_t>& now = after_.at(listNow).children;
        for (std::size_t at = std::min(position - std::min<std::size_t>(position, 1), items.size());
             at-- > 0;) {
            const auto found = std::find(now.begin(), now.end(), matching_.ofLeft[items[at]]);
            if (found != now.end())
                return static_cast<std::size_t>(found - now.begin()) + 2;
        }
        return 1;
    }

    const ItemTree& before_;
    const ItemTree& after_;
    const std::vector<Entry>& beforeParts_;
    const std::vector<Entry>& afterParts_;
    ItemMatching matching_;
};

/// The places in one section.
class SectionFollowing {
public:
    SectionFollowing(const ProjectParts& before, const ProjectParts& after, std::size_t section)
        : form_(ProjectParts::form(section)), before_(before.blocks(section)), after_(after.blocks(section)),
          matching_(matchBlocks(form_, before_, after_)) {}

    void follow(ValuePlace& place) const {
        const auto block = std::find_if(before_.begin(), before_.end(),
                                        [&](const Block& known) { return known.name == place.place.name; });
        if (block == before_.end())
            return;
        const std::size_t now = matching_.ofLeft[static_cast<std::size_t>(block - before_.begin())];
        if (now == kNoBlock)
            return;
        place.place.name = after_[now].name;
        if (!place.place.path.empty() && block->text != after_[now].text) {
            const Entry was = form_.read(block->text);
            const Entry is = form_.read(after_[now].text);
            EntryFollowing(form_, was, is).follow(place);
        }
    }

private:
    const PartForm& form_;
    const Blocks& before_;
    const Blocks& after_;
    BlockMatching matching_;
};

} // namespace

std::vector<ValuePlace> followPlaces(const Project& before, const Project& after,
                                     const std::vector<ValuePlace>& places) {
    const ProjectParts beforeParts(before);
    const ProjectParts afterParts(after);
    std::array<std::optional<SectionFollowing>, ProjectParts::kSections> sections;
    std::vector<ValuePlace> followed = places;
    for (ValuePlace& place : followed) {
        const auto section = ProjectParts::sectionOf(place.kind);
        if (!sections[section])
            sections[section].emplace(beforeParts, afterParts, section);
        sections[section]->follow(place);
    }
    return followed;
}

} // namespace zb
