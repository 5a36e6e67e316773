#include "messages/message_record.h"

#include "messages/item_grammar.h"
#include "messages/mdf_text.h"
#include "messages/smd/smd_text_parser.h"
#include "platform/number.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <optional>

namespace zb {

namespace {

constexpr std::string_view kToEquipment = "H->E";
constexpr std::string_view kToHost = "H<-E";
constexpr std::string_view kBothWays = "H<->E";

int numberOf(std::string_view word) {
    // Most are one to three digits; the rest may be any form of a number.
    constexpr std::size_t kUsual = 3;
    if (!word.empty() && word.size() <= kUsual &&
        word.find_first_not_of("0123456789") == std::string_view::npos) {
        int number = 0;
        for (const char digit : word)
            number = number * 10 + (digit - '0');
        return number;
    }
    return isNumeric(word) ? countOf(word) : -1;
}

/// The word's text after its first letter.
std::string_view afterLetter(std::string_view word) {
    return word.empty() ? word : word.substr(1);
}

bool startsWith(std::string_view word, char upperLetter, char lowerLetter) {
    return !word.empty() && (word.front() == upperLetter || word.front() == lowerLetter);
}

std::string firstError(const Findings& findings) {
    const auto found = std::find_if(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.severity == Severity::Error;
    });
    return found == findings.end() ? std::string() : found->text;
}

std::string checkBody(std::string_view body) {
    Findings findings;
    SmdBodyReader reader(body, 1, &findings);
    SmdItemText item;
    SECSItemRecord record;
    while (reader.next(item)) {
        std::string status = record.parseText(item.text);
        // X and J have an old form without apostrophes, in which the values of J are still set.
        if (!status.empty())
            status = record.parseText(normalizeItemText(item.text));
        if (!status.empty())
            return status + ": " + item.text;
    }
    return firstError(findings);
}

} // namespace

SECSMessageRecord::Direction SECSMessageRecord::directionOf(std::string_view word) {
    if (word == kToEquipment)
        return Direction::ToEquipment;
    return word == kToHost ? Direction::ToHost : Direction::Both;
}

SECSMessageRecord::Part SECSMessageRecord::partOf(std::string_view view) const {
    if (view.empty())
        return {};
    return {static_cast<std::uint32_t>(view.data() - text_.data()), static_cast<std::uint32_t>(view.size())};
}

SECSMessageRecord::Part SECSMessageRecord::append(std::string_view text) {
    const Part added{static_cast<std::uint32_t>(text_.size()), static_cast<std::uint32_t>(text.size())};
    text_ += text;
    return added;
}

int SECSMessageRecord::getStream() const {
    return numberOf(getStreamText());
}

int SECSMessageRecord::getFunction() const {
    return numberOf(getFunctionText());
}

std::string SECSMessageRecord::getNumbersText(std::string_view separator) const {
    return std::string("S").append(getStreamText()).append(separator).append("F").append(getFunctionText());
}

std::string_view SECSMessageRecord::getDirection() const {
    switch (direction_) {
    case Direction::ToEquipment:
        return kToEquipment;
    case Direction::ToHost:
        return kToHost;
    default:
        return kBothWays;
    }
}

std::string SECSMessageRecord::getHeadText() const {
    return std::string(getDescription()).append("\r\n").append(getNodeText());
}

template<typename Visit>
void SECSMessageRecord::visitItems(Visit visit) const {
    const std::string_view body = part(body_);
    SmdItemText item;
    if (!bodyIsNumbered_) {
        SmdBodyReader reader(body);
        while (reader.next(item))
            visit(item.level, item.text);
        return;
    }
    LineReader lines(body);
    while (const std::optional<std::string_view> line = lines.next()) {
        std::string_view text = *line;
        visit(countOf(takeWord(text)), text);
    }
}

std::string SECSMessageRecord::getBodyText() const {
    std::string text;
    text.reserve(body_.length + body_.length / 8);
    visitItems([&text](int level, std::string_view item) {
        text.append(std::to_string(level)).append(" ").append(item).append("\r\n");
    });
    return text;
}

std::vector<SECSItemRecord> SECSMessageRecord::getItems() const {
    std::vector<SECSItemRecord> items;
    visitItems([&items](int level, std::string_view item) {
        SECSItemRecord& record = items.emplace_back();
        record.parseText(item);
        record.setLevel(level);
    });
    return items;
}

std::string SECSMessageRecord::parseTexts(std::string_view nodeText, std::string_view description,
                                          std::string_view bodyText) {
    SECSMessageRecord record;
    record.text_.reserve(nodeText.size() + description.size() + bodyText.size());
    record.nodeText_ = record.append(nodeText);
    record.description_ = record.append(description);
    record.body_ = record.append(bodyText);
    *this = std::move(record);
    std::string status = takeHead();
    bodyIsNumbered_ = true;
    return status;
}

SECSMessageRecord SECSMessageRecord::fromParts(const SECSMessageHead& head, std::string_view description,
                                               std::string_view bodyText) {
    SECSMessageRecord record;
    record.wait_ = head.wait;
    record.reply_ = head.reply;
    record.noLogging_ = head.noLogging;
    record.direction_ = directionOf(head.direction);
    // What a node text has beside the name: the numbers, all marks and the signs between them.
    constexpr std::size_t kMost = 48;
    record.text_.reserve(head.name.size() + kMost + description.size() + bodyText.size());
    record.name_ = record.append(head.name);
    record.append(": S");
    record.stream_ = record.append(std::to_string(head.stream));
    record.append(" F");
    record.function_ = record.append(std::to_string(head.function));
    record.append(record.marks());
    record.nodeText_ = record.partOf(record.text_);
    record.description_ = record.append(description);
    record.body_ = record.append(bodyText);
    record.bodyIsNumbered_ = true;
    return record;
}

std::string SECSMessageRecord::marks() const {
    std::string text = wait_ ? " W" : "";
    text.append(reply_ ? " <R>" : "").append(noLogging_ ? " <NL>" : "");
    text.append(" ").append(getDirection());
    return text;
}

std::string SECSMessageRecord::composeNodeText() const {
    std::string text;
    text.reserve(name_.length + 32);
    return text.append(getName()).append(": ").append(getNumbersText(" ")).append(marks());
}

std::string SECSMessageRecord::parseNodeText(std::string_view nodeText, std::string_view description) {
    return parseTexts(nodeText, description, {});
}

std::string SECSMessageRecord::parseSmd(std::string_view text, int formatCode) {
    if (formatCode == kFormatMdf) {
        Findings findings;
        const std::vector<SECSMessageRecord> records = parseMdf(text, findings);
        *this = records.empty() ? SECSMessageRecord() : records.front();
        if (records.size() != 1)
            return "There is not just one message";
        return firstError(findings);
    }
    if (formatCode == kFormatGem || formatCode == kFormatSemi || formatCode == kFormatSmd)
        return takeSmd(text, BodyCheck::Full);
    *this = SECSMessageRecord();
    return "The format " + std::to_string(formatCode) + " is not known here";
}

std::string SECSMessageRecord::takeSmd(std::string_view text, BodyCheck check) {
    *this = SECSMessageRecord();
    text_ = text;
    Findings findings;
    SmdTextSplitter splitter(text_, &findings);
    const std::optional<SmdMessageText> message = splitter.next();
    if (!message)
        return "There is no message";
    description_ = partOf(message->description);
    nodeText_ = partOf(message->head);
    body_ = partOf(message->body);
    std::string status = takeHead();
    if (!status.empty())
        return status;
    if (splitter.next())
        return "There is more than one message";
    if (status = firstError(findings); !status.empty() || check == BodyCheck::None)
        return status;
    return checkBody(message->body);
}

/// Reports faults of the head. An unknown word is reported, and the others are used.
std::string SECSMessageRecord::takeHead() {
    const std::string_view nodeText = getNodeText();
    const std::size_t colon = nodeText.find(": ");
    name_ = partOf(trimmed(nodeText.substr(0, colon)));
    if (colon == std::string_view::npos)
        return "The head has no \": \" after the message name";
    const std::string_view written = trimmed(nodeText.substr(colon + 2));
    std::string tail(written);
    std::replace(tail.begin(), tail.end(), '\t', ' ');
    std::string_view rest = tail;
    const std::string_view stream = takeWord(rest);
    const std::string_view function = takeWord(rest);
    const auto numberIn = [&](std::string_view word) {
        const std::string_view number = afterLetter(word);
        return number.empty() ? Part()
                              : partOf(written.substr(static_cast<std::size_t>(number.data() - tail.data()),
                                                      number.size()));
    };
    stream_ = numberIn(stream);
    function_ = numberIn(function);
    std::string status;
    if (name_.length == 0)
        status = "The message has no name";
    else if (!startsWith(stream, 'S', 's') || !isNumeric(getStreamText()))
        status = "The stream is not \"S\" and a number";
    else if (!startsWith(function, 'F', 'f') || !isNumeric(getFunctionText()))
        status = "The function is not \"F\" and a number";
    bool hasDirection = false;
    while (!rest.empty()) {
        const std::string_view word = takeWord(rest);
        const std::string fault = takeMark(word);
        hasDirection = hasDirection || (!word.empty() && word.front() == 'H');
        if (status.empty())
            status = fault;
    }
    if (status.empty() && !hasDirection)
        status = "The head has no direction";
    return status;
}

std::string SECSMessageRecord::takeMark(std::string_view word) {
    if (word == "W")
        wait_ = true;
    else if (word == "<R>")
        reply_ = true;
    else if (word == "<NL>")
        noLogging_ = true;
    else if (word == kToEquipment || word == kToHost || word == kBothWays)
        direction_ = directionOf(word);
    else if (!word.empty())
        return "\"" + std::string(word) + "\" is no mark of a message head";
    return {};
}

} // namespace zb
