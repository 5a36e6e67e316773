#include "messages/library_store.h"

#include "messages/mdf_text.h"
#include "messages/smd/smd_text_parser.h"
#include "messages/sml/sml.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <iterator>

namespace zb {

namespace {

std::uint64_t streamFunctionKey(int stream, int function) {
    return (std::uint64_t{static_cast<std::uint32_t>(stream)} << 32U) | static_cast<std::uint32_t>(function);
}

/// The body as numbered lines; items without the form of an item are reported.
std::string numberedBody(const SmdMessageText& message, Findings& findings) {
    std::string lines;
    lines.reserve(message.body.size());
    SmdBodyReader reader(message.body, message.bodyLine, &findings);
    SmdItemText item;
    SECSItemRecord record;
    while (reader.next(item)) {
        const std::string status = record.parseText(item.text);
        if (!status.empty())
            findings.push_back({Severity::Error, FindingPlace::atLine(item.line), status + ": " + item.text});
        lines.append(std::to_string(item.level)).append(" ").append(item.text).append("\r\n");
    }
    return lines;
}

/// The words of a head may be separated by tabs as well as blanks.
std::string withBlanksForTabs(std::string_view head) {
    std::string text(head);
    std::replace(text.begin(), text.end(), '\t', ' ');
    return text;
}

} // namespace

SECSLibraryStore::Records SECSLibraryStore::getByStreamFunction(std::string_view text) const {
    SECSMessageRecord asked;
    asked.parseNodeText("name: " + std::string(text), "");
    const auto found = byStreamFunction_.find(streamFunctionKey(asked.getStream(), asked.getFunction()));
    return found == byStreamFunction_.end() ? Records() : found->second;
}

SECSLibraryStore::Records SECSLibraryStore::getMessages() const {
    Records records;
    records.reserve(records_.size());
    for (const SECSMessageRecord& record : records_)
        records.push_back(&record);
    return records;
}

std::vector<std::string> SECSLibraryStore::getRows() const {
    std::vector<std::string> rows;
    rows.reserve(records_.size());
    for (const SECSMessageRecord& record : records_) {
        std::string& row = rows.emplace_back(record.getName());
        row.append("\\").append(record.getStreamText()).append("\\").append(record.getFunctionText());
        row.append("\\").append(record.getDescription());
    }
    return rows;
}

std::string SECSLibraryStore::load(const std::string& textOrPath, int formatCode, const Progress& progress) {
    if (formatCode == kFormatGem || formatCode == kFormatSemi)
        return loadText(textOrPath, formatCode, progress);
    Result<std::string> bytes = readBytes(textOrPath);
    if (!bytes)
        return bytes.error().description;
    constexpr double kRead = 0.1; // the share of the time that the reading of the file takes
    progress.part(0, kRead).at(1, 1);
    return loadBytes(*std::move(bytes), formatCode, progress.part(kRead, 1));
}

std::string SECSLibraryStore::loadBytes(std::string bytes, int formatCode, const Progress& progress) {
    constexpr double kDecoded = 0.1;
    const std::string text = decodeText(std::move(bytes), codePage_);
    progress.part(0, kDecoded).at(1, 1);
    return loadText(text, formatCode, progress.part(kDecoded, 1));
}

std::string SECSLibraryStore::loadText(std::string_view text, int formatCode, const Progress& progress) {
    const std::size_t before = records_.size();
    switch (formatCode) {
    case kFormatGem:
    case kFormatSemi:
    case kFormatSmd:
        loadSmd(text, progress);
        break;
    case kFormatMdf:
        loadMdf(text, progress);
        break;
    case kFormatSml:
        loadSml(text, progress);
        break;
    default:
        return "The format " + std::to_string(formatCode) + " is not known here";
    }
    return records_.size() > before ? "" : "There is no message";
}

void SECSLibraryStore::loadSmd(std::string_view text, const Progress& progress) {
    SmdTextSplitter splitter(text, &findings_);
    while (const std::optional<SmdMessageText> message = splitter.next()) {
        progress.at(static_cast<std::size_t>(message->head.data() - text.data()), text.size());
        const std::string body = numberedBody(*message, findings_);
        SECSMessageRecord record;
        const std::string status =
            record.parseTexts(withBlanksForTabs(message->head), message->description, body);
        if (!status.empty()) {
            findings_.push_back({Severity::Error, FindingPlace::atLine(message->headLine), status});
            ++unread_;
            continue;
        }
        // The head in the form of a tree, whatever separated its words in the file.
        const std::string nodeText = record.composeNodeText();
        if (record.getHeadText().size() != message->description.size() + 2 + nodeText.size())
            record.parseTexts(nodeText, message->description, body);
        add(std::move(record));
    }
}

void SECSLibraryStore::loadMdf(std::string_view text, const Progress& progress) {
    for (SECSMessageRecord& record : parseMdf(text, findings_, progress))
        add(std::move(record));
}

void SECSLibraryStore::loadSml(std::string_view text, const Progress& progress) {
    constexpr double kRead = 0.6; // the rest of the time goes into the records
    SmlLibrary library = readSml(text, codePage_, progress.part(0, kRead));
    const Progress recorded = progress.part(kRead, 1);
    SECSMessageHead head;
    std::size_t done = 0;
    for (const SmlMessage& message : library.messages) {
        recorded.at(done++, library.messages.size());
        head.name = message.name;
        head.stream = message.stream;
        head.function = message.function;
        head.wait = message.wait;
        head.reply = message.autoReply;
        head.noLogging = message.noLogging;
        head.direction = message.direction;
        add(SECSMessageRecord::fromParts(head, message.description, message.body));
    }
    unread_ += library.unread;
    std::move(library.findings.begin(), library.findings.end(), std::back_inserter(findings_));
}

void SECSLibraryStore::add(SECSMessageRecord record) {
    const SECSMessageRecord& added = records_.emplace_back(std::move(record));
    byStreamFunction_[streamFunctionKey(added.getStream(), added.getFunction())].push_back(&added);
}

} // namespace zb
