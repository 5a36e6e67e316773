#include "compare/part_form.h"

#include "messages/message_record.h"
#include "messages/smd/smd_reader.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/tree/node_walk.h"
#include "platform/wildcard.h"

#include <algorithm>
#include <optional>

namespace zb {

namespace {

/// Finds the messages in a section line by line, as its reader does (see readSmdSection).
class MessageLines {
public:
    explicit MessageLines(std::string_view section) : section_(section) {}

    Blocks run() {
        LineReader lines(section_);
        while (const auto line = lines.next())
            take(*line);
        close(section_.size());
        return std::move(blocks_);
    }

    /// The bytes of the first message up to its end; what follows is in no message.
    std::size_t lengthOfFirst() {
        LineReader lines(section_);
        while (const auto line = lines.next()) {
            take(*line);
            if (!blocks_.empty() && !isOpen_)
                break;
        }
        return end_;
    }

private:
    std::size_t placeOf(std::string_view line) const {
        return static_cast<std::size_t>(line.data() - section_.data());
    }
    std::size_t endOf(std::string_view line) const {
        const std::size_t lineEnd = section_.find('\n', placeOf(line) + line.size());
        return lineEnd == std::string_view::npos ? section_.size() : lineEnd + 1;
    }

    void take(std::string_view whole) {
        const std::string_view line = whole.substr(0, whole.find_last_not_of(' ') + 1);
        if (line.empty())
            return;
        // Without a description only the asterisk is left of its line.
        if (line.starts_with("* ") || (line == "*" && !isOpen_)) {
            comment_ = placeOf(whole);
            return;
        }
        if (!line.starts_with("##")) {
            if (hasColon(line))
                open(whole, line);
            else if (isOpen_)
                goOn(whole, line);
        }
        comment_.reset();
    }

    void open(std::string_view whole, std::string_view line) {
        const std::size_t start = comment_.value_or(placeOf(whole));
        close(start);
        start_ = start;
        hasName_ = true;
        blocks_.push_back({trim(before(trimmed(line), ": ")), {}});
        goOn(whole, line);
    }

    void goOn(std::string_view whole, std::string_view line) {
        isOpen_ = !line.ends_with('.');
        end_ = endOf(whole);
    }

    void close(std::size_t at) {
        if (hasName_)
            blocks_.back().text = section_.substr(start_, at - start_);
        else if (at > 0 &&
                 trimmed(section_.substr(0, at)).find_first_not_of("\r\n ") != std::string_view::npos)
            blocks_.push_back({{}, section_.substr(0, at)});
    }

    std::string_view section_;
    Blocks blocks_;
    std::optional<std::size_t> comment_;
    std::size_t start_ = 0;
    std::size_t end_ = 0;
    bool hasName_ = false;
    bool isOpen_ = false;
};

constexpr const char* kHead = "head";
constexpr const char* kOther = "other";

const char* wordOfTruth(bool value) {
    return value ? "true" : "false";
}

std::string composeHead(const Entry& entry) {
    if (const std::string_view head = entry.stored(kHead); !head.empty())
        return entry.name + std::string(head);
    std::string text = entry.name;
    text.append(": S").append(entry.stored("stream")).append(" F").append(entry.stored("function"));
    text.append(entry.stored("wait") == "true" ? " W" : "");
    text.append(entry.stored("reply") == "true" ? " <R>" : "");
    text.append(entry.stored("nologging") == "true" ? " <NL>" : "");
    return text.append(" ").append(entry.stored("direction"));
}

void readHead(Entry& entry, const Node& message) {
    const Node* description = message.previous();
    SECSMessageRecord record;
    record.parseNodeText(message.text(), description == nullptr ? "" : description->text());
    entry.name = record.getName();
    entry.set("stream", std::string(record.getStreamText()));
    entry.set("function", std::string(record.getFunctionText()));
    entry.set("wait", wordOfTruth(record.getWait()));
    entry.set("reply", wordOfTruth(record.getReply()));
    entry.set("nologging", wordOfTruth(record.getNoLogging()));
    entry.set("direction", std::string(record.getDirection()));
    entry.set("description", std::string(record.getDescription()));
    // What follows the name in a damaged head is kept as it is; a blank is trimmed when it is read again.
    const std::string rest = message.text().substr(std::min(entry.name.size(), message.text().size()));
    entry.set(kHead, record.composeNodeText() == message.text() ? "" : rest.empty() ? " " : rest);
}

class MessageForm final : public PartForm {
public:
    PartKind kind() const override { return PartKind::Message; }
    PartKind itemKind() const override { return PartKind::Item; }
    Blocks split(std::string_view section) const override { return MessageLines(section).run(); }
    /// Keys of messages are compared upper-cased.
    std::string nameKey(std::string_view name) const override { return upper(name); }

    Entry read(std::string_view block) const override {
        Entry entry;
        const std::size_t length = MessageLines(block).lengthOfFirst();
        NodeTree tree;
        readSmdSection(tree, block.substr(0, length));
        if (const Node* message = tree.lastRoot(); message != nullptr) {
            readHead(entry, *message);
            for (NodeWalk walk(*message); const Node* node = walk.node(); walk.next())
                entry.items.addAtLevel(walk.depth() + 1, node->text());
        }
        const std::string_view rest = block.substr(length);
        const bool isBlankRest = rest.find_first_not_of("\r\n ") == std::string_view::npos;
        entry.setStored(kOther, shownBlock(rest), isBlankRest ? std::string() : std::string(rest));
        return entry;
    }

    std::string write(const Entry& entry) const override {
        std::string text;
        if (!entry.name.empty()) {
            text.append("* ").append(entry.stored("description")).append("\r\n").append(composeHead(entry));
            text.append(entry.items.empty() ? ".\r\n" : "\r\n");
        }
        for (std::size_t node = 1; node < entry.items.count(); ++node) {
            const ItemTree::Node& item = entry.items.at(node);
            text.append(item.depth * 4, ' ').append(item.text);
            text.append(node + 1 == entry.items.count() ? ".\r\n" : "\r\n");
        }
        return text.append(entry.stored(kOther));
    }

    std::string likenessGroup(std::string_view block) const override {
        LineReader lines(block);
        while (const auto line = lines.next()) {
            if (line->starts_with("* ") || !hasColon(*line))
                continue;
            std::string_view head = trimmed(*line);
            if (head.ends_with('.'))
                head.remove_suffix(1);
            SECSMessageRecord record;
            record.parseNodeText(head, {});
            return record.getNumbersText(" ").append(" ").append(record.getDirection());
        }
        return {};
    }
    bool isTellingLine(std::string_view line) const override {
        return line.starts_with("* ") || !hasColon(line);
    }

    void align(const std::vector<Entry*>& versions) const override {
        bool isDamaged = false;
        for (const Entry* version : versions)
            isDamaged = isDamaged || !version->stored(kHead).empty();
        for (Entry* version : isDamaged ? versions : std::vector<Entry*>()) {
            const std::string head = composeHead(*version).substr(version->name.size());
            std::vector<EntryField> kept;
            for (EntryField& field : version->fields) {
                if (field.key == "description" || field.key == kOther)
                    kept.push_back(std::move(field));
            }
            version->fields = std::move(kept);
            version->set(kHead, head);
        }
    }

    std::string shownHead(const Entry& entry) const override { return composeHead(entry); }
};

} // namespace

const PartForm& messageForm() {
    static const MessageForm kForm;
    return kForm;
}

std::string shownBlock(std::string_view block) {
    std::string shown;
    LineReader lines(block);
    while (const auto line = lines.next())
        shown.append(*line).append("\n");
    while (shown.ends_with('\n'))
        shown.pop_back();
    return shown;
}

} // namespace zb
