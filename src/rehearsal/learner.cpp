#include "rehearsal/learner.h"

#include "messages/sml/characters.h"
#include "platform/text.h"

#include <algorithm>

namespace zb::rehearsal {

namespace {

/// "Are You There Request" as "AreYouThereRequest".
std::string nameFromTitle(std::string_view title) {
    std::string name;
    bool begins = true;
    for (const char c : title) {
        if (!sml::isLetter(c) && !sml::isDigit(c)) {
            begins = true;
            continue;
        }
        name += begins ? sml::upperLetter(c) : c;
        begins = false;
    }
    return name;
}

std::string uniqueIn(std::set<std::string>& names, const std::string& wanted) {
    std::string name = wanted;
    for (std::size_t number = 2; !names.insert(upper(name)).second; ++number)
        name = wanted + std::to_string(number);
    return name;
}

} // namespace

Learner::Learner() {
    for (PublishedLayout& published : publishedLayouts()) {
        Layout layout;
        for (const std::string_view form : published.forms)
            layout.shapes.push_back(parseLayout(form));
        layout.published = std::move(published);
        const std::pair key(layout.published.stream, layout.published.function);
        layouts_.emplace(key, std::move(layout));
    }
}

const Learner::Layout* Learner::layoutOf(const Key& key) const {
    const auto found = layouts_.find({key.stream, key.function});
    return found == layouts_.end() ? nullptr : &found->second;
}

const LayoutShape* Learner::shapeOf(const Layout* layout, const LearnedItem& item) {
    if (layout == nullptr || layout->shapes.empty())
        return nullptr;
    const auto fitting = std::find_if(layout->shapes.begin(), layout->shapes.end(),
                                      [&](const LayoutShape& shape) { return fitsLayout(item, shape); });
    return fitting == layout->shapes.end() ? nullptr : &*fitting;
}

bool Learner::unite(Structure& structure, const std::optional<LearnedItem>& root, const Layout* layout) {
    if (structure.root.has_value() != root.has_value())
        return false;
    if (!root)
        return true;
    LearnedItem united = *structure.root;
    if (!rehearsal::unite(united, *root, shapeOf(layout, *root)))
        return false;
    structure.root = std::move(united);
    return true;
}

void Learner::add(const RecordedMessage& message) {
    if (message.header.isControl() || !message.fault.empty())
        return;
    const Key key{message.header.stream, message.header.function, message.header.wait};
    const Layout* const layout = layoutOf(key);
    std::optional<LearnedItem> root;
    if (!message.items.empty())
        root = learnItem(message.items, 0);
    std::vector<Structure>& structures = structures_[key];
    auto found = std::find_if(structures.begin(), structures.end(),
                              [&](Structure& structure) { return unite(structure, root, layout); });
    if (found == structures.end()) {
        if (structures.size() == kMostStructures) {
            ++leftOut_;
            return;
        }
        structures.push_back({std::move(root), false, false});
        found = structures.end() - 1;
    }
    found->toHost = found->toHost || message.direction == Direction::ToHost;
    found->toEquip = found->toEquip || message.direction == Direction::ToEquip;
}

std::vector<SECSMessageRecord> Learner::records() const {
    std::vector<SECSMessageRecord> records;
    std::set<std::string> names;
    for (const auto& [key, structures] : structures_)
        for (const Structure& structure : structures)
            records.push_back(recordOf(key, structure, names));
    return records;
}

SECSMessageRecord Learner::recordOf(const Key& key, const Structure& structure,
                                    std::set<std::string>& names) const {
    const Layout* const layout = layoutOf(key);
    SECSMessageHead head;
    head.name = layout != nullptr ? nameFromTitle(layout->published.title)
                                  : "S" + std::to_string(key.stream) + "F" + std::to_string(key.function);
    head.name = uniqueIn(names, head.name);
    head.stream = key.stream;
    head.function = key.function;
    head.wait = key.wait;
    if (structure.toHost != structure.toEquip)
        head.direction = structure.toHost ? "H<-E" : "H->E";
    else if (!structure.toHost && layout != nullptr)
        head.direction = layout->published.direction;
    std::string body;
    if (structure.root) {
        std::set<std::string> items;
        appendLearned(body, *structure.root, shapeOf(layout, *structure.root), 1,
                      [&items](const std::string& name) { return uniqueIn(items, name); });
    }
    return SECSMessageRecord::fromParts(head, layout != nullptr ? std::string(layout->published.title) : "",
                                        body);
}

} // namespace zb::rehearsal
