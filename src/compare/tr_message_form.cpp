#include "compare/part_form.h"

#include "messages/item_grammar.h"
#include "model/fact_text.h"
#include "model/tr_message_lines.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <array>
#include <utility>

namespace zb {

namespace {

struct Fact {
    const char* keyword;
    const char* field;
};

/// The lines of a TR message and of its items that are fields, in the order of the file.
/// @{
constexpr std::array<Fact, 5> kMessageFacts{{{"SECSMessage", "secsmessage"},
                                             {"Condition", "condition"},
                                             {"Report", "report"},
                                             {"Direction", "direction"},
                                             {"DataBlock", "data"}}};
constexpr std::array<Fact, 3> kItemFacts{{{"Type", "type"}, {"Value", "value"}, {"ABSValue", "absvalue"}}};
/// @}
constexpr const char* kDescription = "datadescription";
constexpr const char* kStatements = "statements";
/// A data block whose head is empty is not a missing one.
constexpr const char* kEmptyHead = " ";

constexpr std::string_view kPart = "    ";

/// Reads the lines that a model is composed of.
class TrMessageReader {
public:
    Entry read(std::string_view block) {
        for (const Fact& fact : kMessageFacts)
            message_.set(fact.field, {});
        message_.set(kDescription, {});
        LineReader lines(block);
        while (const auto line = lines.next())
            take(*line);
        return std::move(message_);
    }

private:
    void take(std::string_view line) {
        if (line.starts_with(kTRMessageMarker)) {
            std::string_view name = line.substr(kTRMessageMarker.size());
            message_.name = factText(trimmed(name));
            return;
        }
        const std::size_t indentation = std::min(line.find_first_not_of(' '), line.size());
        std::string_view rest = line.substr(indentation);
        const std::string_view keyword = takeWord(rest);
        if (keyword == "TRItem")
            openItem(rest);
        else if (keyword == "EndTRItem")
            closeItem();
        else if (inItem_)
            takeOfItem(line, keyword, rest);
        else
            takeOfMessage(keyword, rest);
    }

    void takeOfMessage(std::string_view keyword, std::string_view rest) {
        if (keyword == "Item") {
            const int level = countOf(takeWord(rest));
            message_.items.addAtLevel(static_cast<std::size_t>(std::max(level, 1)), factText(rest));
        } else if (keyword == "Description") {
            put(message_, kDescription, rest);
        } else {
            for (const Fact& fact : kMessageFacts) {
                if (keyword == fact.keyword)
                    put(message_, fact.field, keyword == "DataBlock" && rest.empty() ? kEmptyHead : rest);
            }
        }
    }

    void openItem(std::string_view name) {
        message_.parts.emplace_back().name = factText(name);
        for (const Fact& fact : kItemFacts)
            message_.parts.back().set(fact.field, {});
        inItem_ = true;
        statements_ = {};
        lines_ = {};
    }

    void takeOfItem(std::string_view line, std::string_view keyword, std::string_view rest) {
        if (keyword == "StatementText")
            statements_.append(statements_.empty() ? "" : "\n").append(factText(rest));
        if (keyword == "StatementText" || keyword == "Element")
            lines_.append(line).append("\r\n");
        for (const Fact& fact : kItemFacts) {
            if (keyword == fact.keyword)
                put(message_.parts.back(), fact.field, rest);
        }
    }

    void closeItem() {
        if (inItem_)
            message_.parts.back().setStored(kStatements, std::move(statements_), std::move(lines_));
        inItem_ = false;
    }

    static void put(Entry& entry, std::string_view key, std::string_view stored) {
        for (EntryField& field : entry.fields) {
            if (field.key == key)
                field = {std::string(key), factText(stored), std::string(stored)};
        }
    }

    Entry message_;
    std::string statements_;
    std::string lines_;
    bool inItem_ = false;
};

void writeFact(std::string& text, std::string_view indentation, std::string_view keyword,
               std::string_view stored) {
    if (!stored.empty())
        text.append(indentation).append(keyword).append(" ").append(stored).append("\r\n");
}

void writeDataBlock(std::string& text, const Entry& message) {
    const std::string_view head = message.stored("data");
    if (head.empty())
        return;
    text.append("  DataBlock").append(head == kEmptyHead ? "" : " ");
    text.append(head == kEmptyHead ? std::string_view() : head).append("\r\n");
    writeFact(text, kPart, "Description", message.stored(kDescription));
    for (std::size_t node = 1; node < message.items.count(); ++node) {
        const ItemTree::Node& item = message.items.at(node);
        text.append(kPart).append("Item ").append(std::to_string(item.depth)).append(" ");
        appendFactText(text, item.text);
        text.append("\r\n");
    }
}

void writeItem(std::string& text, const Entry& item) {
    text.append("  TRItem ");
    appendFactText(text, item.name);
    text.append("\r\n");
    for (const Fact& fact : kItemFacts)
        writeFact(text, kPart, fact.keyword, item.stored(fact.field));
    text.append(item.stored(kStatements)).append("  EndTRItem\r\n");
}

class TrMessageForm final : public PartForm {
public:
    PartKind kind() const override { return PartKind::TrMessage; }
    PartKind itemKind() const override { return PartKind::TrItem; }

    Blocks split(std::string_view section) const override {
        Blocks blocks;
        LineReader lines(section);
        while (const auto line = lines.next()) {
            if (!line->starts_with(kTRMessageMarker))
                continue;
            const auto at = static_cast<std::size_t>(line->data() - section.data());
            if (!blocks.empty())
                blocks.back().text.remove_suffix(section.size() - at);
            blocks.push_back({factText(trimmed(line->substr(kTRMessageMarker.size()))), section.substr(at)});
        }
        return blocks;
    }

    Entry read(std::string_view block) const override { return TrMessageReader().read(block); }

    std::string write(const Entry& message) const override {
        std::string text(kTRMessageMarker);
        text += ' ';
        appendFactText(text, message.name);
        text.append("\r\n");
        for (const Fact& fact : kMessageFacts) {
            if (std::string_view(fact.keyword) != "DataBlock")
                writeFact(text, "  ", fact.keyword, message.stored(fact.field));
        }
        writeDataBlock(text, message);
        for (const Entry& item : message.parts)
            writeItem(text, item);
        return text.append(kEndOfTRMessage).append("\r\n");
    }

    std::string likenessGroup(std::string_view block) const override {
        const Entry message = read(block);
        return std::string(message.stored("secsmessage")) + " " + std::string(message.stored("direction"));
    }
    bool isTellingLine(std::string_view line) const override {
        if (line.starts_with("##"))
            return false;
        std::string_view rest = line.substr(std::min(line.find_first_not_of(' '), line.size()));
        const std::string_view keyword = takeWord(rest);
        return keyword != "SECSMessage" && keyword != "Report" && keyword != "Direction" &&
               !keyword.starts_with("EndTR");
    }
};

/// Lines of a file for people: LF, and without the indentation of the first line.
std::string withoutIndentation(std::string_view lines) {
    const std::size_t indentation = std::min(lines.find_first_not_of(' '), lines.size());
    std::string text;
    LineReader reader(lines);
    while (const auto line = reader.next()) {
        const std::size_t blanks = std::min(line->find_first_not_of(' '), line->size());
        text.append(text.empty() ? "" : "\n").append(line->substr(std::min(blanks, indentation)));
    }
    return text;
}

} // namespace

const PartForm& trMessageForm() {
    static const TrMessageForm kForm;
    return kForm;
}

std::string shownPart(const Entry& part) {
    std::string text = part.name;
    for (const EntryField& field : part.fields) {
        if (!field.value.empty())
            text.append("\n    ").append(field.key).append(" ").append(
                replaceAll(field.value, "\n", "\n    " + std::string(field.key.size() + 1, ' ')));
    }
    return text;
}

std::string writtenField(const EntryField& field) {
    return field.key == kStatements ? withoutIndentation(field.stored) : field.value;
}

void setWrittenField(EntryField& field, const std::string& written) {
    if (field.key == kStatements) {
        const auto part = readPart("TRItem x\n" + written + "\nEndTRItem");
        field = part->fields.back();
        return;
    }
    field.value = written;
    field.stored.clear();
    if (written == kEmptyHead)
        field.stored = kEmptyHead;
    else
        appendFactText(field.stored, written);
}

std::string writtenPart(const Entry& part) {
    std::string text;
    writeItem(text, part);
    return withoutIndentation(text);
}

std::optional<Entry> readPart(std::string_view written) {
    Entry message = TrMessageReader().read(written);
    if (message.parts.size() != 1 || message.parts.front().find(kStatements) == nullptr)
        return std::nullopt;
    return std::move(message.parts.front());
}

std::optional<std::string> writtenDataBlock(const Entry& message) {
    std::string text;
    writeDataBlock(text, message);
    return text.empty() ? std::nullopt : std::optional(withoutIndentation(text));
}

void setWrittenDataBlock(Entry& message, const std::optional<std::string>& written) {
    Entry other = TrMessageReader().read(written.value_or(std::string()));
    takeDataBlock(message, other);
}

void takeDataBlock(Entry& message, const Entry& other) {
    for (EntryField& field : message.fields) {
        const EntryField* taken = other.find(field.key);
        if ((field.key == "data" || field.key == kDescription) && taken != nullptr)
            field = *taken;
    }
    message.items = other.items;
}

} // namespace zb
