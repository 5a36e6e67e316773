#include "compare/single_part_value.h"

#include "compare/item_lines.h"
#include "model/sequence_lines.h"
#include "platform/text.h"

#include <algorithm>
#include <charconv>

namespace zb {

namespace {

using Text = std::optional<std::string>;

constexpr const char* kNoPosition = "a position is a number";

/// Lines of a file.
std::string withLineEnds(const std::string& text) {
    return text.empty() ? text : replaceAll(replaceAll(text, "\r", ""), "\n", "\r\n") + "\r\n";
}

/// The row of a sequence that people see as direction and name.
std::string rowOfShown(const std::string& shown) {
    std::string direction;
    std::string name = shown;
    for (const char* word : {"ToHost", "ToEquip"}) {
        const std::string start = std::string(word) + " ";
        if (name.starts_with(start)) {
            direction = word;
            name.erase(0, start.size());
        }
    }
    constexpr const char* kSeparator = "\u00FF";
    return std::string(kSequenceItem) + kSeparator + kSeparator + direction + kSeparator + name;
}

} // namespace

std::size_t numberOfPosition(const std::optional<std::string>& position) {
    const std::string text = trim(position.value_or(std::string()));
    const std::string_view last = std::string_view(text).substr(text.rfind('/') + 1);
    std::size_t number = 0;
    const auto [stop, error] = std::from_chars(last.data(), last.data() + last.size(), number);
    return error == std::errc() && stop == last.data() + last.size() ? number : 0;
}

/// An item of the message's tree, and not one of a TR message, whose path is its name.
bool SinglePartValue::isTreePath() const {
    return !at_.place.path.empty() && at_.place.path.find_first_not_of("0123456789/") == std::string::npos;
}

std::optional<std::string> SinglePartValue::read(std::string_view block) const {
    if (at_.field.empty() && at_.place.path.empty())
        return shownBlock(block);
    const Entry entry = form_.read(block);
    if (at_.place.path.empty())
        return fieldOf(entry);
    if (const Entry* part = partOf(entry); part != nullptr)
        return partValue(entry, *part);
    const auto node = ItemLines::find(entry.items, at_.place.path);
    if (at_.isMissing || !node || *node == ItemTree::kRoot)
        return std::nullopt;
    if (at_.field == "position")
        return at_.place.path;
    const bool isWhole = at_.field.empty() && form_.itemsHaveNames();
    return isWhole ? entry.items.subtreeText(*node) : form_.shownItem(entry.items.at(*node).text);
}

Result<std::string, ValueFault> SinglePartValue::set(std::string_view block, const Text& value) {
    Entry entry = form_.read(block);
    fault_.clear();
    if (at_.place.path.empty())
        setField(entry, value);
    else if (const Entry* part = partOf(entry); part != nullptr)
        setPart(entry, static_cast<std::size_t>(part - entry.parts.data()), value);
    else if (at_.kind == PartKind::TrItem && !isTreePath())
        addPart(entry, value);
    else
        setItem(entry, value);
    if (!fault_.empty())
        return ValueFault{fault_};
    return form_.write(entry);
}

Text SinglePartValue::fieldOf(const Entry& entry) const {
    if (at_.field == "name")
        return entry.name;
    if (at_.field == "items")
        return shownItems(entry.items);
    if (at_.field == "block")
        return writtenDataBlock(entry);
    const EntryField* field = entry.find(at_.field);
    return field == nullptr ? Text() : Text(writtenField(*field));
}

const Entry* SinglePartValue::partOf(const Entry& entry) const {
    if (at_.kind != PartKind::TrItem)
        return nullptr;
    const auto part = std::find_if(entry.parts.begin(), entry.parts.end(),
                                   [this](const Entry& item) { return item.name == at_.place.path; });
    return part == entry.parts.end() ? nullptr : &*part;
}

Text SinglePartValue::partValue(const Entry& entry, const Entry& part) const {
    if (at_.field == "position")
        return std::to_string(&part - entry.parts.data() + 1);
    return at_.field.empty() ? writtenPart(part) : fieldOf(part);
}

void SinglePartValue::setField(Entry& entry, const Text& value) {
    if (at_.field == "name" && value)
        entry.name = *value;
    else if (at_.field == "items")
        setItems(entry, value.value_or(std::string()));
    else if (at_.field == "block")
        setWrittenDataBlock(entry, value);
    else
        setEntryField(entry, value.value_or(std::string()));
}

void SinglePartValue::setItems(Entry& entry, const std::string& text) const {
    ItemLines lines(entry.items);
    lines.replaceAll(text);
    entry.items = lines.tree();
}

void SinglePartValue::setEntryField(Entry& entry, const std::string& value) {
    const auto field = std::find_if(entry.fields.begin(), entry.fields.end(),
                                    [this](const EntryField& known) { return known.key == at_.field; });
    if (field == entry.fields.end()) {
        fault_ = "there is no field " + at_.field;
        return;
    }
    if (form_.kind() == PartKind::TrMessage) {
        setWrittenField(*field, value);
        return;
    }
    field->value = value;
    field->stored = at_.field == "other" || at_.field == "section" ? withLineEnds(value) : value;
}

void SinglePartValue::setPart(Entry& entry, std::size_t part, const Text& value) {
    Entry& item = entry.parts[part];
    if (at_.field == "position")
        return movePart(entry, part, value);
    if (!at_.field.empty())
        return at_.field == "name" && value ? void(item.name = *value)
                                            : setEntryField(item, value.value_or(std::string()));
    if (!value) {
        entry.parts.erase(entry.parts.begin() + static_cast<std::ptrdiff_t>(part));
        return;
    }
    if (auto read = readPart(*value))
        item = std::move(*read);
    else
        fault_ = "it is no TR item";
}

void SinglePartValue::movePart(Entry& entry, std::size_t part, const Text& value) {
    const std::size_t number = numberOfPosition(value);
    if (number == 0) {
        fault_ = kNoPosition;
        return;
    }
    Entry item = std::move(entry.parts[part]);
    entry.parts.erase(entry.parts.begin() + static_cast<std::ptrdiff_t>(part));
    const std::size_t place = std::min(number - 1, entry.parts.size());
    entry.parts.insert(entry.parts.begin() + static_cast<std::ptrdiff_t>(place), std::move(item));
}

void SinglePartValue::addPart(Entry& entry, const Text& value) {
    auto part = value && at_.field.empty() ? readPart(*value) : std::nullopt;
    if (part)
        entry.parts.push_back(std::move(*part));
    else if (value)
        fault_ = at_.field.empty() ? "it is no TR item" : "it is missing";
}

void SinglePartValue::setItem(Entry& entry, const Text& value) {
    if (!isTreePath()) {
        fault_ = "it is missing";
        return;
    }
    ItemLines lines(entry.items);
    const Text text =
        value && !form_.itemsHaveNames() && at_.field != "position" ? Text(rowOfShown(*value)) : value;
    bool done = true;
    if (at_.isMissing)
        done = !text || lines.insert(at_.place.path, *text);
    else if (at_.field == "position")
        done = lines.move(at_.place.path, numberOfPosition(value));
    else if (!at_.field.empty() && text)
        lines.setText(at_.place.path, *text);
    else
        done = lines.replace(at_.place.path, text);
    if (!done)
        fault_ = at_.field == "position" ? kNoPosition : "the list that it belongs to is missing";
    entry.items = lines.tree();
}

} // namespace zb
