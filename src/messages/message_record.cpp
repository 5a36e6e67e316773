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

int numberOf(const std::string& word) {
    // Most are one to three digits; the rest may be any form of a number.
    constexpr std::size_t kUsual = 3;
    if (!word.empty() && word.size() <= kUsual && word.find_first_not_of("0123456789") == std::string::npos) {
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

int SECSMessageRecord::getStream() const {
    return numberOf(streamText_);
}

int SECSMessageRecord::getFunction() const {
    return numberOf(functionText_);
}

std::string SECSMessageRecord::getHeadText() const {
    return description_ + "\r\n" + nodeText_;
}

template<typename Visit>
void SECSMessageRecord::visitItems(Visit visit) const {
    const std::string_view body = std::string_view(source_).substr(bodyStart_, bodyLength_);
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
    text.reserve(bodyLength_ + bodyLength_ / 8);
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
    std::string status = parseNodeText(nodeText, description);
    source_ = bodyText;
    bodyLength_ = source_.size();
    bodyIsNumbered_ = true;
    return status;
}

SECSMessageRecord SECSMessageRecord::fromParts(SECSMessageHead head, std::string description,
                                               std::string bodyText) {
    SECSMessageRecord record;
    record.name_ = std::move(head.name);
    record.streamText_ = std::to_string(head.stream);
    record.functionText_ = std::to_string(head.function);
    record.wait_ = head.wait;
    record.reply_ = head.reply;
    record.noLogging_ = head.noLogging;
    record.direction_ = std::move(head.direction);
    record.nodeText_ = record.composeNodeText();
    record.description_ = std::move(description);
    record.source_ = std::move(bodyText);
    record.bodyLength_ = record.source_.size();
    record.bodyIsNumbered_ = true;
    return record;
}

std::string SECSMessageRecord::composeNodeText() const {
    std::string text;
    text.reserve(name_.size() + 32);
    text.append(name_).append(": S").append(streamText_).append(" F").append(functionText_);
    text.append(wait_ ? " W" : "").append(reply_ ? " <R>" : "").append(noLogging_ ? " <NL>" : "");
    text.append(" ").append(direction_);
    return text;
}

std::string SECSMessageRecord::parseNodeText(std::string_view nodeText, std::string_view description) {
    *this = SECSMessageRecord();
    nodeText_ = nodeText;
    description_ = description;
    return takeHead();
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
    source_ = text;
    Findings findings;
    SmdTextSplitter splitter(source_, &findings);
    const std::optional<SmdMessageText> message = splitter.next();
    if (!message)
        return "There is no message";
    description_ = message->description;
    nodeText_ = message->head;
    bodyStart_ = static_cast<std::size_t>(message->body.data() - source_.data());
    bodyLength_ = message->body.size();
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
    const std::size_t colon = nodeText_.find(": ");
    name_ = trimmed(std::string_view(nodeText_).substr(0, colon));
    direction_ = "H<->E";
    if (colon == std::string::npos)
        return "The head has no \": \" behind the message name";
    std::string tail = trim(std::string_view(nodeText_).substr(colon + 2));
    std::replace(tail.begin(), tail.end(), '\t', ' ');
    std::string_view rest = tail;
    const std::string_view stream = takeWord(rest);
    const std::string_view function = takeWord(rest);
    streamText_ = afterLetter(stream);
    functionText_ = afterLetter(function);
    std::string status;
    if (name_.empty())
        status = "The message has no name";
    else if (!startsWith(stream, 'S', 's') || !isNumeric(streamText_))
        status = "The stream is not \"S\" and a number";
    else if (!startsWith(function, 'F', 'f') || !isNumeric(functionText_))
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
    else if (word == "H->E" || word == "H<-E" || word == "H<->E")
        direction_ = word;
    else if (!word.empty())
        return "\"" + std::string(word) + "\" is no mark of a message head";
    return {};
}

} // namespace zb
