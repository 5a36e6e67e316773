#include "document/interface_document.h"

#include "document/html_style.h"
#include "document/interface_facts.h"
#include "document/markup.h"
#include "document/sequence_chart.h"

#include <initializer_list>

namespace zb {

namespace {

std::string wayText(const std::string& direction) {
    if (direction == "H->E")
        return "Host \u2192 Equipment";
    return direction == "H<-E" ? "Host \u2190 Equipment" : "Host \u2194 Equipment";
}

class HtmlWriter {
public:
    explicit HtmlWriter(const InterfaceFacts& facts) : facts_(facts) {}

    std::string run() {
        writeHead();
        writeMessageTable();
        if (!facts_.sequences.empty())
            writeSequences();
        writeMessages();
        if (!facts_.items.empty())
            writeItemIndex();
        html_ += "</main>\n</body>\n</html>\n";
        return std::move(html_);
    }

private:
    /// A cell is markup already.
    using Cells = std::initializer_list<std::string>;

    void row(const char* cell, Cells cells) {
        html_ += "<tr>";
        for (const std::string& text : cells)
            html_.append("<").append(cell).append(">").append(text).append("</").append(cell).append(">");
        html_ += "</tr>\n";
    }

    void openTable(Cells headings) {
        html_ += "<div class=\"scroll\"><table>\n<thead>\n";
        row("th", headings);
        html_ += "</thead>\n<tbody>\n";
    }
    void closeTable() { html_ += "</tbody>\n</table></div>\n"; }

    static std::string value(const std::string& text) {
        return text.empty() ? std::string() : "<code>" + markupText(text) + "</code>";
    }

    std::string link(std::size_t message) const {
        const DocumentedMessage& target = facts_.messages[message];
        return "<a href=\"" + messageAnchor(message) + "\">" + markupText(target.streamFunction) + " " +
               markupText(target.name) + "</a>";
    }

    std::string links(const std::vector<std::size_t>& messages) const {
        std::string text;
        for (const std::size_t message : messages)
            text.append(text.empty() ? "" : ", ").append(link(message));
        return text;
    }

    void writeHead() {
        const std::string title = markupText(facts_.title) + ": SECS-II interface";
        html_ += "<!DOCTYPE html>\n<html lang=\"en\" xmlns=\"http://www.w3.org/1999/xhtml\">\n<head>\n"
                 "<meta charset=\"utf-8\"/>\n"
                 "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n<title>" +
                 title + "</title>\n<style>" + kHtmlStyle + "</style>\n</head>\n<body>\n<header>\n<h1>" +
                 title + "</h1>\n<p>Parties: Host, Equipment. Described by the side of the " +
                 (facts_.isHost ? "host" : "equipment") + ".</p>\n<p class=\"soft\">" +
                 std::to_string(facts_.messages.size()) + " messages, " +
                 std::to_string(facts_.sequences.size()) + " sequences</p>\n</header>\n<main>\n";
    }

    void writeMessageTable() {
        html_ += "<h2 id=\"messages\">Messages</h2>\n";
        openTable({"Message", "Name", "Direction", "W", "Reply", "Description"});
        for (std::size_t at = 0; at < facts_.messages.size(); ++at) {
            const DocumentedMessage& message = facts_.messages[at];
            row("td", {markupText(message.streamFunction),
                       "<a href=\"" + messageAnchor(at) + "\">" + markupText(message.name) + "</a>",
                       wayText(message.direction), message.wait ? "W" : "",
                       message.isReply ? "" : links(message.replies), markupText(message.description)});
        }
        closeTable();
    }

    void writeSequences() {
        html_ += "<h2 id=\"sequences\">Sequences</h2>\n";
        for (const DocumentedSequence& sequence : facts_.sequences)
            html_ += "<figure>\n<figcaption><strong>" + markupText(sequence.name) +
                     "</strong></figcaption>\n" + sequenceChart(sequence) + "</figure>\n";
    }

    void writeMessages() {
        html_ += "<h2 id=\"structures\">Structures</h2>\n";
        for (std::size_t at = 0; at < facts_.messages.size(); ++at)
            writeMessage(at);
    }

    void writeMessage(std::size_t at) {
        const DocumentedMessage& message = facts_.messages[at];
        html_ += "<section>\n<h3 id=\"" + messageAnchor(at).substr(1) + "\">" +
                 markupText(message.streamFunction) + " " + markupText(message.name) + "</h3>\n";
        if (!message.title.empty())
            html_ += "<p class=\"soft\">" + markupText(message.title) + "</p>\n";
        if (!message.description.empty())
            html_ += "<p>" + markupText(message.description) + "</p>\n";
        html_ += "<p>" + wayText(message.direction) + (message.wait ? ", W" : "") + "</p>\n";
        if (!message.replies.empty())
            html_ += std::string("<p>") + (message.isReply ? "Answers: " : "Reply: ") +
                     links(message.replies) + "</p>\n";
        if (message.items.empty())
            html_ += "<p class=\"soft\">No data</p>\n";
        else
            writeItems(message);
        for (const DocumentedTransaction& transaction : message.transactions)
            writeTransaction(transaction);
        html_ += "</section>\n";
    }

    void writeItems(const DocumentedMessage& message) {
        openTable({"Item", "Format", "Count", "Value", "Meaning"});
        for (const DocumentedItem& item : message.items) {
            std::string name;
            for (std::size_t depth = 0; depth < item.depth; ++depth)
                name += "\u2003";
            name += item.name.empty() ? "\u2013" : markupText(item.name);
            if (item.isKey)
                name += " <strong>key</strong>";
            std::string meaning = markupText(item.meaning);
            if (!item.codes.empty())
                meaning += "<br/><span class=\"soft\">" + markupText(item.codes) + "</span>";
            row("td", {name, markupText(item.format), markupText(item.count), value(item.value), meaning});
        }
        closeTable();
    }

    void writeTransaction(const DocumentedTransaction& transaction) {
        html_ += "<h4>Transaction " + markupText(transaction.name) + "</h4>\n<p>" +
                 (transaction.isReceived ? "Received" : "Sent") + " towards the " +
                 (transaction.isToHost ? "host" : "equipment");
        if (transaction.isReceived)
            html_ += transaction.condition.empty() ? ", in every other case"
                                                   : ", when " + value(transaction.condition);
        html_ += "</p>\n";
        if (transaction.values.empty())
            return;
        openTable({"Item", transaction.isReceived ? "Source" : "Value", "Statements"});
        for (const DocumentedValue& item : transaction.values)
            row("td", {markupText(item.name), value(item.source), statements(item)});
        closeTable();
    }

    static std::string statements(const DocumentedValue& item) {
        std::string text;
        for (const std::string& line : item.statements)
            text.append(text.empty() ? "" : "\n").append(markupText(line));
        return text.empty() ? text : "<pre><code>" + text + "</code></pre>";
    }

    void writeItemIndex() {
        html_ += "<h2 id=\"items\">Data items</h2>\n";
        openTable({"Item", "Meaning", "Used in"});
        for (const DocumentedUse& use : facts_.items)
            row("td", {markupText(use.name), markupText(use.meaning), links(use.messages)});
        closeTable();
    }

    const InterfaceFacts& facts_;
    std::string html_;
};

} // namespace

std::string interfaceHtml(const InterfaceFacts& facts) {
    return HtmlWriter(facts).run();
}

} // namespace zb
