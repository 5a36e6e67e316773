#include "model/model_writer.h"

#include "messages/item_grammar.h"
#include "model/fact_text.h"
#include "model/tr_message_lines.h"
#include "model/tr_model_store.h"
#include "platform/text.h"
#include "platform/text_file.h"

namespace zb {

namespace {

constexpr std::string_view kMessageIndentation = "  ";
constexpr std::string_view kPartIndentation = "    ";

/// Writes line by line; a text that is empty has no blank before it.
class FactLines {
public:
    void line(std::string_view indentation, std::string_view keyword, std::string_view text = {}) {
        text_.append(indentation).append(keyword);
        if (!text.empty()) {
            text_ += ' ';
            appendFactText(text_, text);
        }
        text_ += "\r\n";
    }

    /// An empty text needs no line.
    void lineUnlessEmpty(std::string_view indentation, std::string_view keyword, std::string_view text) {
        if (!text.empty())
            line(indentation, keyword, text);
    }

    void numberedLine(std::string_view keyword, std::size_t number, std::string_view text) {
        startNumbered(keyword, number);
        text_ += ' ';
        appendFactText(text_, text);
        text_ += "\r\n";
    }

    void element(const XmlElement& element, std::size_t depth) {
        startNumbered("Element", depth);
        text_ += ' ';
        appendFactWord(text_, element.name());
        for (const XmlAttribute& attribute : element.attributes()) {
            text_ += ' ';
            appendFactWord(text_, attribute.name);
            text_ += '=';
            appendQuotedFact(text_, attribute.value);
        }
        if (!element.text().empty()) {
            text_ += ' ';
            appendQuotedFact(text_, element.text());
        }
        text_ += "\r\n";
        for (const XmlElement& child : element.children())
            this->element(child, depth + 1);
    }

    std::string take() { return std::move(text_); }

private:
    void startNumbered(std::string_view keyword, std::size_t number) {
        text_.append(kPartIndentation).append(keyword).append(" ").append(std::to_string(number));
    }

    std::string text_;
};

void writeDataBlock(FactLines& lines, const SECSMessageRecord& block) {
    lines.line(kMessageIndentation, "DataBlock", block.getNodeText());
    lines.lineUnlessEmpty(kPartIndentation, "Description", block.getDescription());
    const std::string body = block.getBodyText();
    LineReader items(body);
    while (const auto item = items.next()) {
        std::string_view text = *item;
        const int level = countOf(takeWord(text));
        lines.numberedLine("Item", static_cast<std::size_t>(level), text);
    }
}

void writeItem(FactLines& lines, const TRItemRecord& item) {
    lines.line(kMessageIndentation, "TRItem", item.Name());
    lines.lineUnlessEmpty(kPartIndentation, "Type", item.Type());
    lines.lineUnlessEmpty(kPartIndentation, "Value", item.Value());
    lines.lineUnlessEmpty(kPartIndentation, "ABSValue", item.ABSValue());
    for (const std::string& line : split(item.StatementText(), "\r\n"))
        lines.line(kPartIndentation, "StatementText", line);
    if (item.ConditionNode())
        lines.element(*item.ConditionNode(), 1);
    lines.line(kMessageIndentation, "EndTRItem");
}

void writeMessage(FactLines& lines, const TRMessageRecord& message) {
    lines.line({}, kTRMessageMarker, message.Name());
    lines.lineUnlessEmpty(kMessageIndentation, "SECSMessage", message.SECSMessage());
    lines.lineUnlessEmpty(kMessageIndentation, "Condition", message.Condition());
    lines.line(kMessageIndentation, "Report", message.Report() ? "True" : "False");
    lines.line(kMessageIndentation, "Direction", std::to_string(message.Direction()));
    if (message.DataBlock())
        writeDataBlock(lines, *message.DataBlock());
    for (const auto& item : message.TRItems())
        writeItem(lines, *item);
    lines.line({}, kEndOfTRMessage);
}

} // namespace

std::string composeModel(const TRModelStore& model) {
    FactLines lines;
    for (const auto& message : model.TRMessages())
        writeMessage(lines, *message);
    return lines.take();
}

std::string composeTRMessage(const TRMessageRecord& message) {
    FactLines lines;
    writeMessage(lines, message);
    return lines.take();
}

} // namespace zb
