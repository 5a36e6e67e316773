#include "rehearsal/learned_item.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace zb::rehearsal {

namespace {

using secs2::Format;
using secs2::Item;
using secs2::Items;
using secs2::ValueKind;

constexpr std::size_t kHighestCount = 32767;
constexpr std::size_t kMostExampleValues = 1000;

bool isQuoted(Format format) {
    return secs2::traitsOf(format).kind == ValueKind::Text;
}

/// One character for each byte, since an item Text has no escapes.
std::string exampleText(std::string_view data) {
    std::string text;
    for (const char c : data.substr(0, kHighestCount))
        text += c == '\'' ? '`' : c < ' ' ? ' ' : c == '\x7F' ? ' ' : c;
    std::replace_if(
        text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; }, '?');
    return text;
}

std::string exampleValues(const Items& items, const Item& item) {
    std::string text;
    for (std::size_t i = 0; i < std::min(Items::count(item), kMostExampleValues); ++i) {
        text += i == 0 ? "" : " ";
        const bool isFloat = secs2::traitsOf(item.format).kind == ValueKind::Float;
        if (isFloat && !std::isfinite(items.floatValue(item, i)))
            text += '0';
        else
            items.appendValue(text, item, i);
    }
    return text;
}

/// Makes a list of equal members one that repeats a single member.
bool makeRepeated(LearnedItem& list) {
    for (std::size_t i = 1; i < list.members.size(); ++i)
        if (!unite(list.members[0], list.members[i], nullptr))
            return false;
    list.members.resize(std::min<std::size_t>(list.members.size(), 1));
    list.isVariable = true;
    return true;
}

bool uniteMembers(LearnedItem& learned, const LearnedItem& other, const LayoutShape* shape) {
    const auto shapeOf = [shape](std::size_t i) -> const LayoutShape* {
        if (shape == nullptr || shape->members.empty() || shape->kind == LayoutShape::Kind::Item)
            return nullptr;
        return &shape->members[std::min(i, shape->members.size() - 1)];
    };
    for (std::size_t i = 0; i < learned.members.size(); ++i)
        if (!unite(learned.members[i], other.members[i], shapeOf(i)))
            return false;
    return true;
}

bool uniteLists(LearnedItem& learned, const LearnedItem& other, const LayoutShape* shape) {
    if (!learned.isVariable && !other.isVariable && learned.members.size() == other.members.size()) {
        LearnedItem united = learned;
        if (uniteMembers(united, other, shape)) {
            learned = std::move(united);
            return true;
        }
    }
    if (shape != nullptr && shape->kind == LayoutShape::Kind::Fixed)
        return false;
    LearnedItem repeated = other;
    if ((!learned.isVariable && !makeRepeated(learned)) || (!repeated.isVariable && !makeRepeated(repeated)))
        return false;
    learned.most = std::max(learned.most, other.most);
    if (learned.members.empty())
        learned.members = repeated.members;
    return repeated.members.empty() || unite(learned.members[0], repeated.members[0], nullptr);
}

/// Up to twice what was seen.
std::size_t boundOf(const LearnedItem& item) {
    return std::clamp<std::size_t>(item.most * 2, 1, kHighestCount);
}

std::string nameOf(const LearnedItem& item, const LayoutShape* shape) {
    const std::string name = shape == nullptr ? std::string() : shape->firstName();
    if (item.format == Format::List)
        return (name.empty() ? "LIST" : name) + "COUNT";
    return shape != nullptr && shape->kind == LayoutShape::Kind::Item ? name : std::string();
}

} // namespace

LearnedItem learnItem(const Items& items, std::size_t index) {
    const Item& item = items[index];
    LearnedItem learned;
    learned.format = item.format;
    learned.most = Items::count(item);
    if (item.format == Format::List)
        for (std::size_t member = index + 1; member < item.end; member = items[member].end)
            learned.members.push_back(learnItem(items, member));
    else
        learned.value = isQuoted(item.format) ? exampleText(items.data(item)) : exampleValues(items, item);
    return learned;
}

bool unite(LearnedItem& learned, const LearnedItem& other, const LayoutShape* shape) {
    if (learned.format != other.format)
        return false;
    if (learned.format == Format::List)
        return uniteLists(learned, other, shape);
    if (learned.most != other.most || other.isVariable)
        learned.isVariable = true;
    learned.most = std::max(learned.most, other.most);
    if (learned.value.empty())
        learned.value = other.value;
    return true;
}

bool fitsLayout(const LearnedItem& item, const LayoutShape& shape) {
    switch (shape.kind) {
    case LayoutShape::Kind::Fixed:
        return item.format == Format::List && !item.isVariable &&
               item.members.size() == shape.members.size() &&
               std::equal(item.members.begin(), item.members.end(), shape.members.begin(), fitsLayout);
    case LayoutShape::Kind::Repeated:
        return item.format == Format::List && !shape.members.empty() &&
               std::all_of(item.members.begin(), item.members.end(),
                           [&](const LearnedItem& member) { return fitsLayout(member, shape.members[0]); });
    default:
        return true;
    }
}

void appendLearned(std::string& body, const LearnedItem& item, const LayoutShape* shape, std::size_t level,
                   const UniqueName& uniqueName) {
    const bool isList = item.format == Format::List;
    // An item without values is not fixed at none: a definition has no item that is always empty.
    const bool isVariable = item.isVariable || (!isList && item.most == 0) || item.most > kHighestCount;
    body.append(std::to_string(level)).append(" ");
    body += item.format == Format::Char2 ? "X" : std::string(secs2::traitsOf(item.format).word);
    body.append(" ")
        .append(std::to_string(isVariable ? boundOf(item) : item.most))
        .append(isVariable ? "V" : "");
    if (!isList || isVariable)
        if (const std::string name = nameOf(item, shape); !name.empty())
            body.append(" ").append(uniqueName(name));
    if (isQuoted(item.format))
        body.append(" '").append(item.value).append("'");
    else if (!item.value.empty())
        body.append(" ").append(item.value);
    body += "\r\n";
    for (std::size_t i = 0; i < item.members.size(); ++i) {
        const LayoutShape* below = nullptr;
        if (shape != nullptr && shape->kind != LayoutShape::Kind::Item && !shape->members.empty())
            below = &shape->members[std::min(i, shape->members.size() - 1)];
        appendLearned(body, item.members[i], below, level + 1, uniqueName);
    }
}

} // namespace zb::rehearsal
