#include "document/interface_document.h"

#include "document/interface_facts.h"
#include "document/markup.h"

#include <initializer_list>

namespace zb {

namespace {

class MarkdownWriter {
public:
    explicit MarkdownWriter(const InterfaceFacts& facts) : facts_(facts) {}

    std::string run() {
        text_ = "# " + markdownText(facts_.title) +
                ": SECS-II interface\n\nParties: Host, Equipment. Described by "
                "the side of the " +
                (facts_.isHost ? "host" : "equipment") + ".\n\n## Messages\n\n";
        table({"Message", "Name", "Direction", "W", "Reply", "Description"});
        for (std::size_t at = 0; at < facts_.messages.size(); ++at) {
            const DocumentedMessage& message = facts_.messages[at];
            row({markdownText(message.streamFunction),
                 "[" + markdownText(message.name) + "](" + messageAnchor(at) + ")",
                 markdownText(message.direction), message.wait ? "W" : "",
                 message.isReply ? "" : links(message.replies), markdownText(message.description)});
        }
        writeSequences();
        text_ += "\n## Structures\n";
        for (std::size_t at = 0; at < facts_.messages.size(); ++at)
            writeMessage(at);
        writeItemIndex();
        return std::move(text_);
    }

private:
    using Cells = std::initializer_list<std::string>;

    void row(Cells cells) {
        text_ += '|';
        for (const std::string& cell : cells)
            text_.append(" ").append(cell).append(" |");
        text_ += '\n';
    }

    void table(Cells headings) {
        row(headings);
        text_ += '|';
        for (std::size_t at = 0; at < headings.size(); ++at)
            text_ += "---|";
        text_ += '\n';
    }

    std::string links(const std::vector<std::size_t>& messages) const {
        std::string text;
        for (const std::size_t message : messages) {
            const DocumentedMessage& target = facts_.messages[message];
            text.append(text.empty() ? "[" : ", [")
                .append(markdownText(target.streamFunction + " " + target.name))
                .append("](")
                .append(messageAnchor(message))
                .append(")");
        }
        return text;
    }

    void writeSequences() {
        if (facts_.sequences.empty())
            return;
        text_ += "\n## Sequences\n";
        for (const DocumentedSequence& sequence : facts_.sequences) {
            text_ += "\n### " + markdownText(sequence.name) + "\n\n";
            for (std::size_t at = 0; at < sequence.steps.size(); ++at) {
                const DocumentedStep& step = sequence.steps[at];
                text_ += std::to_string(at + 1) + ". " +
                         (step.isToHost ? "Equipment to Host: " : "Host to Equipment: ") +
                         markdownText(step.transaction);
                if (step.message != std::string::npos)
                    text_ += " (" + links({step.message}) + ")";
                text_ += "\n";
            }
        }
    }

    void writeMessage(std::size_t at) {
        const DocumentedMessage& message = facts_.messages[at];
        text_ += "\n<a id=\"" + messageAnchor(at).substr(1) + "\"></a>\n\n### " +
                 markdownText(message.streamFunction + " " + message.name) + "\n\n";
        if (!message.description.empty())
            text_ += markdownText(message.description) + "\n\n";
        text_ += markdownText(message.direction) + (message.wait ? ", W" : "") + "\n\n";
        if (!message.replies.empty())
            text_ += (message.isReply ? "Answers: " : "Reply: ") + links(message.replies) + "\n\n";
        if (message.items.empty())
            text_ += "No data\n";
        else
            writeItems(message);
        for (const DocumentedTransaction& transaction : message.transactions)
            writeTransaction(transaction);
    }

    void writeItems(const DocumentedMessage& message) {
        table({"Item", "Format", "Count", "Value", "Meaning"});
        for (const DocumentedItem& item : message.items) {
            std::string name;
            for (std::size_t depth = 0; depth < item.depth; ++depth)
                name += "\u2003";
            name += item.name.empty() ? "\u2013" : markdownText(item.name);
            if (item.isKey)
                name += " **key**";
            std::string meaning = markdownText(item.meaning);
            if (!item.codes.empty())
                meaning += ": " + markdownText(item.codes);
            row({name, item.format, item.count, markdownText(item.value), meaning});
        }
    }

    void writeTransaction(const DocumentedTransaction& transaction) {
        text_ += "\n#### Transaction " + markdownText(transaction.name) + "\n\n" +
                 (transaction.isReceived ? "Received" : "Sent") + " towards the " +
                 (transaction.isToHost ? "host" : "equipment");
        if (transaction.isReceived)
            text_ += transaction.condition.empty() ? ", in every other case"
                                                   : ", when " + markdownText(transaction.condition);
        text_ += "\n";
        if (transaction.values.empty())
            return;
        text_ += "\n";
        table({"Item", transaction.isReceived ? "Source" : "Value", "Statements"});
        for (const DocumentedValue& item : transaction.values) {
            std::string statements;
            for (const std::string& line : item.statements)
                statements.append(statements.empty() ? "" : "<br>").append(markdownText(line));
            row({markdownText(item.name), markdownText(item.source), statements});
        }
    }

    void writeItemIndex() {
        if (facts_.items.empty())
            return;
        text_ += "\n## Data items\n\n";
        table({"Item", "Meaning", "Used in"});
        for (const DocumentedUse& use : facts_.items)
            row({markdownText(use.name), markdownText(use.meaning), links(use.messages)});
    }

    const InterfaceFacts& facts_;
    std::string text_;
};

} // namespace

std::string interfaceMarkdown(const InterfaceFacts& facts) {
    return MarkdownWriter(facts).run();
}

} // namespace zb
