#include "messages/sml/item_reader.h"

#include "messages/sml/directive.h"
#include "messages/sml/head.h"
#include "platform/text.h"

#include <algorithm>

namespace zb::sml {

namespace {

constexpr std::size_t kDeepestLevel = 1000;

// The name that a comment after an item provides: one word, or a few that can be joined. A sentence is not a
// name.
std::string nameFromComment(std::string_view words) {
    constexpr std::size_t kLongest = 32;
    constexpr std::size_t kMostWords = 4;
    if (words.empty() || words.size() > kLongest)
        return {};
    std::string name;
    std::size_t count = 1;
    bool apart = false;
    for (const char c : words) {
        if (isPlainNameCharacter(c) || c == '.') {
            count += apart ? 1 : 0;
            name += apart ? "_" : "";
            name += c;
            apart = false;
        } else if (name.empty() || (c & 0x80) != 0) {
            return {};
        } else {
            apart = true;
        }
    }
    const bool joined = count > 1 || apart;
    if (count > kMostWords || (joined && !isLetter(name[0])) ||
        name.find_first_not_of("0123456789.") == name.npos)
        return {};
    return name;
}

std::size_t parseCount(std::string_view digits) {
    std::size_t number = 0;
    for (const char c : digits)
        number = std::min<std::size_t>(number * 10 + static_cast<std::size_t>(c - '0'), 1'000'000'000);
    return number;
}

bool isDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

} // namespace

void ItemReader::clear() {
    body_.clear();
    hasLastItem_ = false;
    lostComments_ = 0;
}

ItemReader::Outcome ItemReader::read() {
    Step step = openItem();
    while (step == Step::Next && body_.openLists() > 0)
        step = stepInList();
    if (step == Step::CutShort)
        return Outcome::CutShort;
    return step == Step::Broken ? Outcome::Broken : Outcome::Closed;
}

// A comment that is only a name, as most comments after items are.
bool ItemReader::attachNameAlone(const Comment& comment) {
    if (!hasLastItem_ || comment.onOwnLine)
        return false;
    const std::string_view word = stripped(comment.text);
    constexpr std::size_t kLongest = 32;
    Item& item = body_.item(lastItem_);
    if (item.nameLength > 0 || word.empty() || word.size() > kLongest || !isLetter(word.front()) ||
        !std::all_of(word.begin(), word.end(), isPlainNameCharacter))
        return false;
    body_.setPlainName(item, word);
    return true;
}

void ItemReader::attachComment(const Comment& comment) {
    if (attachNameAlone(comment))
        return;
    std::string words = commentWords(comment.text);
    if (words.starts_with('='))
        words = trim(words.substr(1));
    if (hasLastItem_ && !comment.onOwnLine) {
        Item& item = body_.item(lastItem_);
        if (words.ends_with("[K]")) {
            item.key = true;
            words = trim(words.substr(0, words.size() - 3));
        }
        if (words == body_.name(item))
            return;
        const std::string name = item.nameLength > 0 ? std::string() : nameFromComment(words);
        if (!name.empty()) {
            body_.setName(item, name);
            return;
        }
    }
    if (!words.empty() && lostComments_++ == 0)
        firstLostComment_ = comment.offset;
}

void ItemReader::reportComments() {
    if (lostComments_ == 1)
        findings_.note(firstLostComment_, "a comment within the message has no place in a definition");
    else if (lostComments_ > 1)
        findings_.note(firstLostComment_, std::to_string(lostComments_) +
                                              " comments within the message have no place in a definition");
}

bool ItemReader::atNextMessage() const {
    return scanner_.passedLineEnd() && headFollows(scanner_.offset());
}

bool ItemReader::headFollows(std::size_t offset) const {
    return headAt(scanner_.text(), offset) || atDirective(scanner_.text(), offset);
}

ItemReader::Step ItemReader::fail(const std::string& expected) {
    findings_.fail(scanner_.offset(),
                   "expected " + expected + ", found " + foundAt(scanner_.text(), scanner_.offset()));
    return Step::Broken;
}

ItemReader::Step ItemReader::cutShort() {
    findings_.fail(scanner_.offset(), "expected \">\", found " + foundAt(scanner_.text(), scanner_.offset()) +
                                          "; all items that were open are closed here");
    while (body_.openLists() > 0)
        body_.closeList();
    return Step::CutShort;
}

ItemReader::Step ItemReader::stepInList() {
    skip();
    if (scanner_.atEnd())
        return cutShort();
    const char c = scanner_.peek();
    switch (c) {
    case '<':
        return openItem();
    case '>':
        lastItem_ = body_.closeList();
        scanner_.advance();
        return Step::Next;
    case '.':
        return stepAtPoint();
    case '=':
        return passGivenName() ? Step::Next : Step::Broken;
    case ',':
        findings_.warn(scanner_.offset(),
                       "items are separated by white space; the comma was read as white space");
        scanner_.advance();
        return Step::Next;
    default:
        break;
    }
    if (scanner_.atEllipsis())
        return stepAtPoint();
    if (atNextMessage())
        return cutShort();
    return isWordStart(c) ? addBareVariable() : fail("an item or \">\"");
}

ItemReader::Step ItemReader::stepAtPoint() {
    if (!scanner_.atEllipsis())
        return cutShort();
    // The innermost open list is the last one that has not ended yet.
    Item& list = body_.innermostList();
    if (list.children == 0)
        findings_.warn(scanner_.offset(), "there is no item before \"...\" to repeat");
    list.repeats = true;
    scanner_.passEllipsis();
    return Step::Next;
}

// A name at the position of an item is a value of any type, whatever it means.
ItemReader::Step ItemReader::addBareVariable() {
    const std::size_t offset = scanner_.offset();
    lastItem_ = body_.add(ItemType::Any, offset);
    hasLastItem_ = true;
    giveName(lastItem_, passIndexedName(), offset);
    return Step::Next;
}

std::string_view ItemReader::passName() {
    const std::size_t start = scanner_.offset();
    scanner_.word();
    while ((scanner_.peek() == '.' || scanner_.peek() == '-') && isWordCharacter(scanner_.peek(1))) {
        scanner_.advance();
        scanner_.word();
    }
    return scanner_.text().substr(start, scanner_.offset() - start);
}

// The name of "name[0]": a definition cannot express which of its values is meant.
std::string_view ItemReader::passIndexedName() {
    const std::string_view name = passName();
    std::size_t ahead = 1;
    while (isDigit(scanner_.peek(ahead)))
        ++ahead;
    if (scanner_.peek() == '[' && ahead > 1 && scanner_.peek(ahead) == ']')
        scanner_.advance(ahead + 1);
    return name;
}

void ItemReader::giveName(std::size_t index, std::string_view name, std::size_t offset) {
    Item& item = body_.item(index);
    if (item.nameIsGiven) {
        findings_.warn(offset, "an item has one name; " + std::string(name) + " is left out");
        return;
    }
    body_.setName(item, name);
    item.nameIsGiven = true;
}

bool ItemReader::passGivenName() {
    scanner_.advance();
    skip();
    const std::size_t offset = scanner_.offset();
    const std::string_view name = passName();
    if (name.empty()) {
        fail("a name after \"=\"");
        return false;
    }
    if (hasLastItem_)
        giveName(lastItem_, name, offset);
    return true;
}

ItemReader::Step ItemReader::openItem() {
    const std::size_t offset = scanner_.offset();
    if (upperLetter(scanner_.peek(1)) == 'S' && atNextMessage())
        return cutShort();
    if (body_.openLists() >= kDeepestLevel) {
        findings_.fail(offset,
                       "lists are nested more than " + std::to_string(kDeepestLevel) + " levels deep");
        return Step::Broken;
    }
    scanner_.advance();
    skip();
    const std::size_t wordOffset = scanner_.offset();
    const std::string_view word = scanner_.word();
    const std::optional<ItemType> type = itemTypeOf(word);
    if (!type)
        return openUntypedItem(wordOffset, word);
    if (*type == ItemType::Any && isWord(word, "W"))
        findings_.note(offset, "text with an encoding of its own became an item of any type");
    const std::size_t index = body_.add(*type, offset);
    lastItem_ = index;
    hasLastItem_ = true;
    const Step step = readBrackets(index);
    return step != Step::Next || *type == ItemType::List ? step : readValues(index);
}

ItemReader::Step ItemReader::openUntypedItem(std::size_t offset, std::string_view word) {
    hasLastItem_ = true;
    if (word.empty() || isDigit(word[0])) {
        scanner_.moveTo(offset);
        return openItemByContent(offset);
    }
    // "<CPVAL>" is a value of any type.
    const std::size_t index = lastItem_ = body_.add(ItemType::Any, offset);
    scanner_.moveTo(offset);
    giveName(index, passName(), offset);
    if (const Step step = readBrackets(index); step != Step::Next)
        return step;
    if (scanner_.atEnd() || atNextMessage())
        return cutShort();
    if (scanner_.peek() != '>') {
        findings_.fail(offset, "expected an item type, found " + foundAt(scanner_.text(), offset));
        return Step::Broken;
    }
    scanner_.advance();
    return Step::Next;
}

// Without a type and a name, what follows shows whether it is a list. Values may be of any type.
ItemReader::Step ItemReader::openItemByContent(std::size_t offset) {
    const char c = scanner_.atEnd() ? '\0' : scanner_.peek();
    if (c == '<' || c == '>' || c == '[' || scanner_.atEllipsis()) {
        findings_.fail(offset, "expected an item type; the item was read as a list");
        lastItem_ = body_.add(ItemType::List, offset);
        return readBrackets(lastItem_);
    }
    if (!isDigit(c) && c != '+' && c != '-' && !isQuote(c))
        return fail("an item type");
    findings_.fail(offset, "expected an item type; the item was read as one of any type");
    lastItem_ = body_.add(ItemType::Any, offset);
    return readValues(lastItem_);
}

ItemReader::Step ItemReader::readBrackets(std::size_t index) {
    for (;;) {
        skip();
        if (scanner_.peek() == '[') {
            if (const Step step = readBracket(index); step != Step::Next)
                return step;
            continue;
        }
        if (scanner_.peek() != ',')
            return Step::Next;
        std::size_t ahead = 1;
        while (isInlineSpace(scanner_.peek(ahead)) && scanner_.offset() + ahead < scanner_.text().size())
            ++ahead;
        if (!isDigit(scanner_.peek(ahead)))
            return Step::Next;
        scanner_.advance(ahead);
        body_.item(index).count = {Count::Kind::Fixed, parseCount(scanner_.valueWord())};
    }
}

/// "[3]", as nearly all counts are; nothing, and nothing passed, for others.
std::optional<std::size_t> ItemReader::passPlainCount() {
    constexpr std::size_t kMostDigits = 5;
    std::size_t number = 0;
    std::size_t ahead = 1;
    for (; ahead <= kMostDigits && isDigit(scanner_.peek(ahead)); ++ahead)
        number = number * 10 + static_cast<std::size_t>(scanner_.peek(ahead) - '0');
    if (ahead == 1 || scanner_.peek(ahead) != ']')
        return std::nullopt;
    scanner_.advance(ahead + 1);
    return number;
}

ItemReader::Step ItemReader::readBracket(std::size_t index) {
    if (const std::optional<std::size_t> number = passPlainCount()) {
        body_.item(index).count = {Count::Kind::Fixed, *number};
        return Step::Next;
    }
    constexpr std::size_t kLongest = 200;
    const std::size_t offset = scanner_.offset();
    const std::string_view reach = scanner_.text().substr(offset + 1, kLongest);
    std::size_t end = 0;
    while (end < reach.size() && reach[end] != ']' && reach[end] != '<' && reach[end] != '>' &&
           reach[end] != '\n')
        ++end;
    if (end == reach.size() || reach[end] != ']')
        return fail("a count in brackets");
    scanner_.advance(end + 2);
    const std::string_view words = stripped(reach.substr(0, end));
    Item& item = body_.item(index);
    if (isDigits(words))
        item.count = {Count::Kind::Fixed, parseCount(words)};
    else if (words == "..." || words == "\u2026")
        item.count = {Count::Kind::Open, 0};
    else if (const auto define = defines_.find(words); define != defines_.end())
        item.count = {Count::Kind::Fixed, define->second};
    else if (words.size() > 3 && isWord(words.substr(0, 3), "MAX") && !isWordStart(words[3]))
        applyBound(item, stripped(words.substr(3)));
    else if (!words.empty() && !applyRange(item, words, offset))
        giveName(index, words, offset);
    return Step::Next;
}

// "[MAX 32]", "[MAX MAX_LENGTH]"
bool ItemReader::applyBound(Item& item, std::string_view words) {
    const auto define = defines_.find(words);
    if (isDigits(words)) {
        item.count = {Count::Kind::UpTo, parseCount(words)};
    } else if (define != defines_.end()) {
        item.count = {Count::Kind::UpTo, define->second};
    } else {
        item.count = {Count::Kind::Open, 0};
        findings_.warn(item.offset, "the count " + std::string(words) + " is defined nowhere");
    }
    return true;
}

// "[0..40]", "[5..]", "[..5]"; false for other words.
bool ItemReader::applyRange(Item& item, std::string_view words, std::size_t offset) {
    const std::size_t points = words.find("..");
    if (points == std::string_view::npos)
        return false;
    const std::string_view least = stripped(words.substr(0, points));
    const std::string_view most = stripped(words.substr(points + 2));
    if ((!least.empty() && !isDigits(least)) || (!most.empty() && !isDigits(most)))
        return false;
    if (!most.empty() && parseCount(least) == parseCount(most) && !least.empty()) {
        item.count = {Count::Kind::Fixed, parseCount(most)};
        return true;
    }
    if (most.empty())
        item.count = {Count::Kind::Open, parseCount(least)};
    else
        item.count = {Count::Kind::UpTo, parseCount(most)};
    if (parseCount(least) > 0)
        findings_.note(offset, "a count has an upper bound only; the lower one, " + std::string(least) +
                                   ", is left out");
    return true;
}

} // namespace zb::sml
