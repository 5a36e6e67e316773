#include "editor/node_exchange.h"

#include "editor/node_copies.h"
#include "messages/message_nodes.h"
#include "messages/sml_text.h"
#include "platform/text.h"
#include "platform/wildcard.h"
#include "project/project_messages.h"

#include <algorithm>
#include <charconv>

namespace zb {

namespace {

constexpr std::string_view kHead = "zeltobench nodes 1";
constexpr std::string_view kUnit = "+";

std::string escaped(std::string_view text) {
    std::string line;
    for (const char character : text) {
        if (character == '\n')
            line += "\\n";
        else if (character == '\r')
            line += "\\r";
        else if (character == '\\')
            line += "\\\\";
        else
            line += character;
    }
    return line;
}

std::string unescaped(std::string_view line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\' || i + 1 == line.size()) {
            text += line[i];
            continue;
        }
        const char next = line[++i];
        text += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    }
    return text;
}

/// A message has three root nodes of which the last is its head; an item is one.
bool isWhole(const NodeTree& copy) {
    const Node* first = copy.firstRoot();
    if (first == nullptr || first->text().empty() != (first->next() != nullptr))
        return false;
    if (first->next() == nullptr)
        return !hasColon(first->text());
    const Node* last = copy.lastRoot();
    return first->next()->next() == last && hasColon(last->text());
}

/// Takes the part before the separator off the text.
std::string_view takeUntil(std::string_view& text, char separator) {
    const std::size_t end = text.find(separator);
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return taken;
}

/// Adds the nodes of one line each, "DEPTH TEXT"; false for a depth that leaves one out.
class TreeFiller {
public:
    explicit TreeFiller(NodeTree& tree) : tree_(tree) {}

    bool add(std::string_view line) {
        const std::string_view number = takeUntil(line, ' ');
        std::size_t depth = 0;
        const auto read = std::from_chars(number.data(), number.data() + number.size(), depth);
        if (read.ec != std::errc() || read.ptr != number.data() + number.size() || depth > above_.size())
            return false;
        above_.resize(depth);
        Node& node = depth == 0 ? tree_.add(nullptr, Relation::Last, unescaped(line))
                                : tree_.add(above_.back(), Relation::Child, unescaped(line));
        node.setExpanded(true);
        above_.push_back(&node);
        return true;
    }

private:
    NodeTree& tree_;
    std::vector<Node*> above_;
};

} // namespace

std::string exchangeTextOf(const CopiedNodes& copies) {
    std::string text = std::string(kHead) + "\n";
    for (const auto& copy : copies) {
        text += std::string(kUnit) + "\n";
        // The nodes that are still to be written, with their depths; the next one is at the end.
        std::vector<std::pair<const Node*, int>> open;
        if (copy->firstRoot() != nullptr)
            open.emplace_back(copy->firstRoot(), 0);
        while (!open.empty()) {
            const auto [node, depth] = open.back();
            open.pop_back();
            text += std::to_string(depth) + " " + escaped(node->text()) + "\n";
            if (node->next() != nullptr)
                open.emplace_back(node->next(), depth);
            if (node->child() != nullptr)
                open.emplace_back(node->child(), depth + 1);
        }
    }
    return text;
}

std::optional<CopiedNodes> copiesOfExchangeText(std::string_view text) {
    if (takeUntil(text, '\n') != kHead)
        return std::nullopt;
    CopiedNodes copies;
    std::optional<TreeFiller> filler;
    while (!text.empty()) {
        const std::string_view line = takeUntil(text, '\n');
        if (line == kUnit) {
            copies.push_back(std::make_unique<NodeTree>());
            filler.emplace(*copies.back());
        } else if (!filler || !filler->add(line)) {
            return std::nullopt;
        }
    }
    const bool whole =
        std::all_of(copies.begin(), copies.end(), [](const auto& copy) { return isWhole(*copy); });
    return whole && !copies.empty() ? std::optional(std::move(copies)) : std::nullopt;
}

namespace {

/// An item alone has no form in SML; it is written as the body of a message without a number.
std::vector<SECSMessageRecord> messagesOf(const CopiedNodes& copies) {
    std::vector<SECSMessageRecord> records;
    for (const auto& copy : copies) {
        const Node* last = copy->lastRoot();
        if (last == nullptr)
            continue;
        if (last->previous() != nullptr) {
            records.push_back(messageRecordOf(*last));
            continue;
        }
        NodeTree around;
        Node& message = addMessageNodes(around, nullptr, "Item", "Item: S0 F0 H<->E", "");
        copyExactly(*last, around, &message, Relation::Child);
        records.push_back(messageRecordOf(message));
    }
    return records;
}

std::vector<const SECSMessageRecord*> pointersTo(const std::vector<SECSMessageRecord>& records) {
    std::vector<const SECSMessageRecord*> pointers;
    pointers.reserve(records.size());
    for (const SECSMessageRecord& record : records)
        pointers.push_back(&record);
    return pointers;
}

} // namespace

std::string sharedTextOf(const CopiedNodes& copies) {
    const std::vector<SECSMessageRecord> records = messagesOf(copies);
    return composeSml(pointersTo(records));
}

BareSml bareTextOf(const CopiedNodes& copies) {
    const std::vector<SECSMessageRecord> records = messagesOf(copies);
    return composeBareSml(pointersTo(records));
}

} // namespace zb
