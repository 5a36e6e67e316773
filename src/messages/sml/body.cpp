#include "messages/sml/body.h"

#include "messages/sml/characters.h"
#include "platform/number.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace zb::sml {

namespace {

constexpr std::size_t kMostCount = 32767; // counts are signed and have 16 bits
constexpr std::size_t kListBound = 20;
constexpr std::size_t kValueBound = 80;

bool isNameCharacter(char c, ItemType type) {
    // A point among the values of a number item would be taken for one of its values.
    return isPlainNameCharacter(c) || (c == '.' && (type == ItemType::List || isQuotedType(type)));
}

bool isAllowedName(std::string_view name, ItemType type) {
    if (name.empty() || !isLetter(name.front()) || type == ItemType::Boolean)
        return false; // not at first sight
    for (const char c : name)
        if (!isNameCharacter(c, type))
            return false;
    return true;
}

// The name in the characters that item names may have; empty when none of them remains.
std::string allowedName(std::string_view name, ItemType type) {
    std::string allowed;
    bool own = false;
    for (const char c : name) {
        if ((c & 0xC0) == 0x80)
            continue; // the remaining bytes of a character that became one mark
        own = own || isLetter(c) || isDigit(c);
        allowed += isNameCharacter(c, type) ? c : '_';
    }
    if (!own)
        return {};
    if (isNumeric(allowed) ||
        (type == ItemType::Boolean && (isWord(allowed, "TRUE") || isWord(allowed, "FALSE"))))
        allowed.insert(0, 1, '_');
    return allowed;
}

std::string times(std::size_t number, std::string_view what) {
    return std::to_string(number) + " " + std::string(what);
}

std::string unitsOf(const Item& item) {
    return times(item.count.number, isQuotedType(item.type) ? "characters" : "values");
}

} // namespace

void Body::clear() {
    items_.clear();
    openLists_.clear();
    names_.clear();
    values_.clear();
    namesInUse_.clear();
}

std::size_t Body::add(ItemType type, std::size_t offset) {
    const std::size_t index = items_.size();
    Item& item = items_.emplace_back();
    item.type = type;
    item.offset = offset;
    item.level = openLists_.size() + 1;
    item.end = index + 1;
    if (!openLists_.empty())
        ++items_[openLists_.back()].children;
    if (type == ItemType::List)
        openLists_.push_back(index);
    return index;
}

std::size_t Body::closeList() {
    const std::size_t index = openLists_.back();
    items_[index].end = items_.size();
    openLists_.pop_back();
    return index;
}

void Body::setName(Item& item, std::string_view name) {
    item.nameBegin = names_.size();
    item.nameLength = name.size();
    item.nameIsPlain = false;
    names_ += name;
}

void Body::setPlainName(Item& item, std::string_view name) {
    setName(item, name);
    item.nameIsPlain = true;
}

std::string_view Body::name(const Item& item) const {
    return std::string_view(names_).substr(item.nameBegin, item.nameLength);
}

std::string_view Body::value(const Item& item) const {
    return std::string_view(values_).substr(item.valueBegin, item.valueLength);
}

bool Body::sameStructure(std::size_t left, std::size_t right) const {
    const std::size_t size = items_[left].end - left;
    if (items_[right].end - right != size)
        return false;
    for (std::size_t i = 0; i < size; ++i)
        if (items_[left + i].type != items_[right + i].type ||
            items_[left + i].children != items_[right + i].children)
            return false;
    return true;
}

bool Body::childrenAreAlike(std::size_t list) const {
    const std::size_t first = list + 1;
    for (std::size_t child = items_[first].end; child < items_[list].end; child = items_[child].end)
        if (!sameStructure(first, child))
            return false;
    return true;
}

bool Body::sameValues(std::size_t list) const {
    const std::size_t first = list + 1;
    const std::size_t size = items_[first].end - first;
    for (std::size_t i = items_[first].end; i < items_[list].end; ++i)
        if (value(items_[i]) != value(items_[first + (i - first) % size]))
            return false;
    return true;
}

Body::Form Body::repeatedForm(std::size_t index, std::size_t bound, FindingCollector& findings) const {
    const Item& list = items_[index];
    if (list.children > 1 && !childrenAreAlike(index)) {
        findings.warn(list.offset,
                      "the repetition of several different items has no form in a definition; the list was "
                      "read with the items it shows");
        return {list.children, false, false};
    }
    if (list.children > 1 && !sameValues(index))
        findings.warn(list.offset, "the list repeats its first item; the values of the others are left out");
    return {std::max(bound, list.children), true, true};
}

Body::Form Body::listForm(std::size_t index, FindingCollector& findings) const {
    const Item& list = items_[index];
    const std::size_t declared = list.count.number;
    const bool bounded = list.count.kind == Count::Kind::UpTo;
    if (list.repeats || list.count.kind == Count::Kind::Open) {
        const bool known = list.count.kind == Count::Kind::Fixed || bounded;
        return repeatedForm(index, known && declared > 0 ? declared : kListBound, findings);
    }
    if (bounded && list.children <= 1)
        return {std::max(declared, list.children), true, false};
    if (bounded)
        findings.warn(list.offset, "a list of a variable count repeats one item, and this one holds " +
                                       times(list.children, "items") +
                                       "; it was read as a list of just these");
    else if (list.count.kind == Count::Kind::Fixed && declared != list.children)
        findings.warn(list.offset, "the list is declared to hold " + times(declared, "items") +
                                       " and holds " + std::to_string(list.children));
    return {list.children, false, false};
}

// An item with a name at the position of its values.
Body::Form Body::templateForm(const Item& item) const {
    if (isQuotedType(item.type))
        return {kValueBound, true, false};
    return {1, false, false};
}

Body::Form Body::valueForm(const Item& item, FindingCollector& findings) const {
    const std::size_t declared = item.count.number;
    if (item.repeats || item.count.kind == Count::Kind::Open)
        return {std::max(item.values, kValueBound), true, false};
    if (item.count.kind == Count::Kind::Absent) {
        const bool holdsAnything = item.type == ItemType::Any && !item.valued;
        const bool isTemplate = !item.valued && (item.nameIsGiven || holdsAnything);
        return isTemplate ? templateForm(item) : Form{item.values, false, false};
    }
    if (declared < item.values)
        findings.warn(item.offset, "the item is declared to hold " + unitsOf(item) + " and holds " +
                                       std::to_string(item.values) + "; the count was raised");
    if (item.count.kind == Count::Kind::UpTo)
        return {std::max(declared, item.values), true, false};
    if (declared > item.values && item.valued)
        findings.warn(item.offset, "the item is declared to hold " + unitsOf(item) + " and holds " +
                                       std::to_string(item.values));
    return {std::max(declared, item.values), false, false};
}

std::string_view Body::uniqueName(const Item& item, std::string_view wanted, FindingCollector& findings) {
    const std::string_view unique = namesInUse_.take(wanted);
    if (unique.size() != wanted.size())
        findings.note(item.offset,
                      "a second item is named " + std::string(wanted) + "; it became " + std::string(unique));
    return unique;
}

std::string_view Body::nameFor(std::size_t index, const Form& form, FindingCollector& findings) {
    const Item& item = items_[index];
    const std::string_view written = name(item);
    if ((item.nameIsPlain && item.type != ItemType::Boolean) || isAllowedName(written, item.type))
        return uniqueName(item, written, findings);
    if (!written.empty()) {
        const std::string allowed = allowedName(written, item.type);
        if (allowed.empty())
            findings.warn(item.offset,
                          "the name " + std::string(written) + " has no letter that an item's name may have");
        else if (allowed != written)
            findings.note(item.offset, "the name " + std::string(written) + " became " + allowed);
        if (!allowed.empty())
            return uniqueName(item, allowed, findings);
    }
    if (item.type != ItemType::List || !form.variable)
        return {};
    // A list with a variable count must have a name: it is named after its repeated item.
    std::string element;
    if (item.children > 0)
        element = allowedName(name(items_[index + 1]), ItemType::U1);
    return uniqueName(item, (element.empty() ? "LIST" : element) + "COUNT", findings);
}

namespace {

char* put(char* at, std::string_view text) {
    return at + text.copy(at, text.size());
}

char* put(char* at, std::size_t number) {
    constexpr std::size_t kMostDigits = std::numeric_limits<std::size_t>::digits10 + 1;
    if (number >= 10)
        return std::to_chars(at, at + kMostDigits, number).ptr;
    *at = static_cast<char>('0' + number);
    return at + 1;
}

} // namespace

// Writes the line in one go: a call for each piece would take longer than the piece.
std::size_t Body::appendLine(std::size_t used, const Item& item, const Form& form, std::string_view name) {
    // What is written beside the name and the value: the level, the count, the word of the type and the
    // marks between them.
    constexpr std::size_t kMost = 64;
    const std::string_view text = value(item);
    const std::size_t needed = used + kMost + name.size() + text.size();
    if (lines_.size() < needed)
        lines_.resize(needed * 2);
    char* at = put(lines_.data() + used, item.level);
    *at++ = ' ';
    at = put(at, typeWord(item.type));
    *at++ = ' ';
    at = put(at, form.count);
    if (form.variable)
        *at++ = 'V';
    if (!name.empty()) {
        *at++ = ' ';
        at = put(at, name);
    }
    const bool quoted = isQuotedType(item.type);
    if (quoted || !text.empty())
        *at++ = ' ';
    if (quoted)
        *at++ = '\'';
    at = put(at, text);
    if (quoted)
        *at++ = '\'';
    at = put(at, item.key ? " [K]\r\n" : "\r\n");
    return static_cast<std::size_t>(at - lines_.data());
}

std::optional<std::string_view> Body::compose(FindingCollector& findings) {
    namesInUse_.clear();
    std::size_t used = 0;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const Item& item = items_[i];
        if (item.leftOut)
            continue;
        if (std::max(item.values, item.children) > kMostCount) {
            findings.fail(item.offset,
                          "the item holds more than " + std::to_string(kMostCount) + " values or items");
            return std::nullopt;
        }
        Form form = item.type == ItemType::List ? listForm(i, findings) : valueForm(item, findings);
        if (form.count > kMostCount) {
            findings.warn(item.offset, "a count goes up to " + std::to_string(kMostCount) + "; " +
                                           std::to_string(form.count) + " was lowered to that");
            form.count = kMostCount;
        }
        used = appendLine(used, item, form, nameFor(i, form, findings));
        if (form.onlyFirstChild && item.children > 1)
            for (std::size_t rest = items_[i + 1].end; rest < item.end; ++rest)
                items_[rest].leftOut = true;
    }
    return std::string_view(lines_).substr(0, used);
}

} // namespace zb::sml
