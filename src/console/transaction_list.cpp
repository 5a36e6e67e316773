#include "console/transaction_list.h"

#include "console/printable.h"
#include "console/text_table.h"
#include "model/sequences.h"
#include "model/tr_model_store.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

namespace zb {

namespace {

using Json = nlohmann::ordered_json;
using Messages = std::vector<const TRMessageRecord*>;

constexpr const char* kUnused = "NONE";

std::string orDash(const std::string& text) {
    return text.empty() || text == kUnused ? "-" : text;
}

/// The lines of a text, or one that says that there are none.
std::vector<std::string> linesOf(const std::string& text) {
    return text == kUnused ? std::vector<std::string>() : split(text, "\r\n");
}

/// An item of a data block: its level and its Text.
std::vector<std::string> dataOf(const TRMessageRecord& message) {
    std::vector<std::string> items;
    const std::string body = message.DataBlock() ? message.DataBlock()->getBodyText() : std::string();
    LineReader lines(body);
    while (const auto line = lines.next())
        items.emplace_back(*line);
    return items;
}

enum class Kind { Received, Sent, Other };

Kind kindOf(const TRModelStore& model, const TRMessageRecord& message) {
    if (message.Direction() == model.ReceivedDirection())
        return Kind::Received;
    return message.Direction() == model.SentDirection() ? Kind::Sent : Kind::Other;
}

/// Prints lines below a heading. The heading is printed with the first line.
class Group {
public:
    Group(std::ostream& out, const char* heading) : out_(out), heading_(heading) {}

    void line(std::size_t level, const std::string& text) {
        if (heading_ != nullptr)
            out_ << heading_ << '\n';
        heading_ = nullptr;
        out_ << std::string(level * 2, ' ') << text << '\n';
    }

private:
    std::ostream& out_;
    const char* heading_;
};

void printItems(Group& group, const TRMessageRecord& message) {
    TextTable table;
    for (const auto& item : message.TRItems())
        table.add({item->Name(), orDash(item->Type()), orDash(item->Value()), orDash(item->ABSValue())});
    const auto lines = table.lines();
    for (std::size_t number = 0; number < lines.size(); ++number) {
        group.line(2, lines[number]);
        for (const std::string& statement : linesOf(message.TRItems()[number]->StatementText()))
            group.line(4, printable(statement));
    }
}

void printData(Group& group, const TRMessageRecord& message) {
    for (const std::string& item : dataOf(message)) {
        const std::size_t blank = item.find(' ');
        const auto level = static_cast<std::size_t>(std::stoul(item.substr(0, blank)));
        group.line(1 + level, printable(item.substr(blank + 1)));
    }
}

void printMessages(std::ostream& out, const char* heading, const TRModelStore& model, Kind kind) {
    Messages messages;
    TextTable table;
    for (const auto& message : model.TRMessages()) {
        if (kindOf(model, *message) != kind)
            continue;
        messages.push_back(message.get());
        table.add({message->Name(), orDash(message->SECSMessage()), message->Report() ? "report" : "-",
                   orDash(message->Condition())});
    }
    Group group(out, heading);
    const auto lines = table.lines();
    for (std::size_t number = 0; number < lines.size(); ++number) {
        group.line(1, lines[number]);
        printItems(group, *messages[number]);
        printData(group, *messages[number]);
    }
}

void printSequences(std::ostream& out, const Sequences& sequences) {
    Group group(out, "Sequences");
    for (const SequenceRow& row : sequences.rows()) {
        if (row.isHead())
            group.line(1, printable(row.text));
        else
            group.line(2, printable(orDash(row.text) + "  " + orDash(row.direction) + "  " +
                                    orDash(row.transactionName)));
    }
}

void printLine(std::ostream& out, const Json& object) {
    out << printableJson(object.dump(-1, ' ', false, Json::error_handler_t::replace)) << '\n';
}

Json jsonOf(const TRItemRecord& item) {
    return {{"name", item.Name()},
            {"type", item.Type()},
            {"value", item.Value()},
            {"absvalue", item.ABSValue()},
            {"statements", linesOf(item.StatementText())}};
}

} // namespace

void printTransactions(std::ostream& out, const TRModelStore& model, const Sequences& sequences) {
    printMessages(out, "Received messages", model, Kind::Received);
    printMessages(out, "Sent messages", model, Kind::Sent);
    printMessages(out, "Messages of no direction", model, Kind::Other);
    printSequences(out, sequences);
}

void printTransactionsAsJson(std::ostream& out, const TRModelStore& model, const Sequences& sequences) {
    constexpr const char* kKinds[] = {"received", "sent", "other"};
    for (const auto& message : model.TRMessages()) {
        Json items = Json::array();
        for (const auto& item : message->TRItems())
            items.push_back(jsonOf(*item));
        printLine(out, {{"kind", kKinds[static_cast<int>(kindOf(model, *message))]},
                        {"name", message->Name()},
                        {"secsmessage", message->SECSMessage()},
                        {"direction", message->Direction()},
                        {"report", message->Report()},
                        {"condition", message->Condition()},
                        {"items", items},
                        {"data", dataOf(*message)}});
    }
    Json sequence;
    for (const SequenceRow& row : sequences.rows()) {
        if (row.isHead() || sequence.is_null()) {
            if (!sequence.is_null())
                printLine(out, sequence);
            sequence = {
                {"kind", "sequence"}, {"name", row.isHead() ? row.text : ""}, {"messages", Json::array()}};
        }
        if (!row.isHead())
            sequence["messages"].push_back({{"direction", row.direction}, {"name", row.transactionName}});
    }
    if (!sequence.is_null())
        printLine(out, sequence);
}

} // namespace zb
