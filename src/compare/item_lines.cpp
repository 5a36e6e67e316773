#include "compare/item_lines.h"

#include "messages/message_nodes.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <charconv>

namespace zb {

namespace {

constexpr std::size_t kIndentation = 4;

std::size_t numberOf(std::string_view text) {
    std::size_t number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && stop == text.data() + text.size() ? number : 0;
}

std::string_view parentPath(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
}

std::string_view lastStep(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

} // namespace

ItemLines::ItemLines(const ItemTree& tree) : before_(tree) {
    for (std::size_t node = 1; node < tree.count(); ++node)
        lines_.push_back({tree.at(node).depth, textWithoutFollowingCount(tree, node)});
}

std::optional<std::size_t> ItemLines::find(const ItemTree& tree, std::string_view path) {
    std::size_t node = ItemTree::kRoot;
    while (!path.empty()) {
        const std::size_t slash = path.find('/');
        const std::size_t position = numberOf(path.substr(0, slash));
        const std::vector<std::size_t>& children = tree.at(node).children;
        if (position == 0 || position > children.size())
            return std::nullopt;
        node = children[position - 1];
        path = slash == std::string_view::npos ? std::string_view() : path.substr(slash + 1);
    }
    return node;
}

void ItemLines::setText(std::string_view path, std::string text) {
    const auto node = find(before_, path);
    if (!node || *node == ItemTree::kRoot)
        return;
    // The count is that of another list: the sub items stay.
    const std::string_view count = wordAt(text, 1);
    const bool isFixedList =
        wordAt(text, 0) == "L" && count.find_first_not_of("0123456789") == std::string_view::npos;
    if (countFollowsItems(before_, *node) && isFixedList && !count.empty())
        text.replace(static_cast<std::size_t>(count.data() - text.data()), count.size(),
                     std::to_string(before_.at(*node).children.size()));
    ItemTree changed = before_;
    changed.setText(*node, std::move(text));
    lines_[*node - 1].text = textWithoutFollowingCount(changed, *node);
}

bool ItemLines::insert(std::string_view path, const std::string& text) {
    return put(path, text, false);
}

bool ItemLines::replace(std::string_view path, const std::optional<std::string>& text) {
    return put(path, text, true);
}

bool ItemLines::move(std::string_view path, std::size_t position) {
    const auto node = find(before_, path);
    if (!node || *node == ItemTree::kRoot || position == 0)
        return false;
    std::vector<std::size_t> siblings = before_.at(before_.at(*node).parent).children;
    std::erase(siblings, *node);
    const std::vector<std::size_t> ends = before_.subtreeEnds();
    const std::size_t last = ends[before_.at(*node).parent];
    const std::size_t target = position <= siblings.size() ? siblings[position - 1] : last;
    const auto at = [this](std::size_t line) {
        return lines_.begin() + static_cast<std::ptrdiff_t>(line) - 1;
    };
    if (target > *node)
        std::rotate(at(*node), at(ends[*node]), at(target));
    else
        std::rotate(at(target), at(*node), at(ends[*node]));
    return true;
}

bool ItemLines::put(std::string_view path, const std::optional<std::string>& text, bool replaces) {
    const std::vector<std::size_t> ends = before_.subtreeEnds();
    const auto parent = find(before_, parentPath(path));
    if (!parent)
        return false;
    const std::vector<std::size_t>& siblings = before_.at(*parent).children;
    const std::size_t position = numberOf(lastStep(path));
    const bool isThere = position >= 1 && position <= siblings.size();
    const std::size_t first = isThere ? siblings[position - 1] : ends[*parent];
    const std::size_t end = isThere && replaces ? ends[first] : first;
    const auto at = [this](std::size_t node) {
        return lines_.begin() + static_cast<std::ptrdiff_t>(node) - 1;
    };
    const auto place = lines_.erase(at(first), at(end));
    if (text) {
        const std::vector<Line> fresh = read(*text, before_.at(*parent).depth + 1);
        lines_.insert(place, fresh.begin(), fresh.end());
    }
    return true;
}

void ItemLines::replaceAll(std::string_view text) {
    lines_ = read(text, 1);
}

std::vector<ItemLines::Line> ItemLines::read(std::string_view text, std::size_t depth) {
    ItemTree tree;
    LineReader lines(text);
    while (const auto line = lines.next()) {
        if (!isBlank(*line))
            tree.addAtLevel(1 + line->find_first_not_of(' ') / kIndentation, trim(*line));
    }
    std::vector<Line> read;
    for (std::size_t node = 1; node < tree.count(); ++node)
        read.push_back({depth + tree.at(node).depth - 1, textWithoutFollowingCount(tree, node)});
    return read;
}

ItemTree ItemLines::tree() const {
    ItemTree tree;
    for (const Line& line : lines_)
        tree.addAtLevel(line.depth, line.text);
    for (std::size_t node = 1; node < tree.count(); ++node)
        tree.setText(node, textWithCount(tree.at(node).text, tree.at(node).children.size()));
    return tree;
}

} // namespace zb
