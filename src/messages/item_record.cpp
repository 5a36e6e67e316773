#include "messages/item_record.h"

#include "messages/item_grammar.h"
#include "platform/text.h"

#include <limits>

namespace zb {

namespace {

bool hasDigitsOnly(std::string_view word) {
    return !word.empty() && word.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Removes the key mark from the end, unless it is part of a quoted value.
bool takeKeyMark(std::string_view& rest) {
    const std::size_t blank = rest.rfind(' ');
    const std::size_t start = blank == std::string_view::npos ? 0 : blank + 1;
    if (!isKeyMark(rest.substr(start)))
        return false;
    const std::string_view before = trimmed(rest.substr(0, start));
    if (before.find('\'') != std::string_view::npos && before.back() != '\'')
        return false;
    rest = before;
    return true;
}

} // namespace

std::string SECSItemRecord::parseText(std::string_view text) {
    // Records are used for one item after the other, and keep the memory of their texts.
    name_.clear();
    value_.clear();
    level_ = 0;
    fixed_ = true;
    key_ = false;
    std::string_view rest = trimmed(text);
    // Most types are upper-cased already.
    const std::string_view typeWord = takeWord(rest);
    ItemKind kind = itemKind(typeWord);
    type_ = typeWord;
    if (kind == ItemKind::Unknown) {
        type_ = upper(typeWord);
        kind = itemKind(type_);
    }
    std::string_view count = takeWord(rest);
    if (!count.empty() && count.back() == 'V') {
        fixed_ = false;
        count.remove_suffix(1);
    }
    count_ = countOf(count);
    std::string status;
    if (kind == ItemKind::Unknown)
        status = "\"" + type_ + "\" is no item type";
    else if (!hasDigitsOnly(count))
        status = "The item count is not a number";
    else if (count_ == std::numeric_limits<int>::max())
        status = "The item count is too large";

    std::string_view afterName = rest;
    const std::string_view third = takeWord(afterName);
    if (isItemName(type_, third)) {
        name_ = third;
        rest = afterName;
    }
    if (kind == ItemKind::Quoted) {
        takeQuotedValue(trimmed(rest), status);
        return status;
    }
    takeWords(rest);
    if (kind == ItemKind::List && !value_.empty()) {
        value_.clear();
        if (status.empty())
            status = "A list has no value";
    }
    return status;
}

void SECSItemRecord::takeQuotedValue(std::string_view rest, std::string& status) {
    key_ = takeKeyMark(rest);
    if (rest.size() >= 2 && rest.front() == '\'' && rest.back() == '\'') {
        value_ = rest.substr(1, rest.size() - 2);
        return;
    }
    value_ = replaceAll(rest, "'", "");
    if (status.empty())
        status = "The value is not between apostrophes";
}

void SECSItemRecord::takeWords(std::string_view rest) {
    while (!rest.empty()) {
        const std::string_view word = takeWord(rest);
        if (isKeyMark(word)) {
            key_ = true;
            continue;
        }
        if (word.empty())
            continue;
        if (!value_.empty())
            value_ += ' ';
        value_ += word;
    }
}

std::string composeItemText(const SECSItemRecord& record) {
    constexpr std::size_t kRest = 24; // blanks, count and marks
    std::string text;
    text.reserve(record.getType().size() + record.getName().size() + record.getValue().size() + kRest);
    text += record.getType();
    text += ' ';
    text += std::to_string(record.getCount());
    if (!record.isFixed())
        text += 'V';
    if (!record.getName().empty())
        text.append(" ").append(record.getName());
    const ItemKind kind = itemKind(record.getType());
    if (kind == ItemKind::Quoted)
        text.append(" '").append(record.getValue()).append("'");
    else if (kind != ItemKind::List && !isBlank(record.getValue()))
        text.append(" ").append(record.getValue());
    if (record.isKey())
        text += " [K]";
    return text;
}

} // namespace zb
