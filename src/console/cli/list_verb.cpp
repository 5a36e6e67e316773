#include "console/cli/list_verb.h"

#include "console/cli/loaded_project.h"
#include "messages/message_record.h"
#include "platform/text.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

namespace zb {

namespace {

struct ListedMessage {
    SECSMessageRecord record;
    long long items = 0;
};

/// All nodes below, lists included, without recursion, for trees of any depth.
long long countBelow(const Node& root) {
    long long count = 0;
    const Node* node = root.child();
    while (node != nullptr) {
        ++count;
        if (node->child() != nullptr) {
            node = node->child();
            continue;
        }
        while (node != &root && node->next() == nullptr)
            node = node->parent();
        node = node == &root ? nullptr : node->next();
    }
    return count;
}

std::vector<ListedMessage> messagesOf(const NodeTree& tree) {
    std::vector<ListedMessage> messages;
    for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next()) {
        if (!isMessageNode(*node))
            continue;
        ListedMessage& message = messages.emplace_back();
        const Node* description = node->previous();
        message.record.parseNodeText(node->text(),
                                     description == nullptr ? std::string() : description->text());
        message.items = countBelow(*node);
    }
    return messages;
}

using Row = std::array<std::string, 6>;

Row rowOf(const ListedMessage& message) {
    const SECSMessageRecord& record = message.record;
    return {record.getName(),
            "S" + record.getStreamText() + "F" + record.getFunctionText(),
            record.getWait() ? "W" : "-",
            record.getDirection(),
            std::to_string(message.items),
            record.getDescription()};
}

/// Columns are as wide as their longest text; nothing stands behind the last one.
void printTable(std::ostream& out, const std::vector<ListedMessage>& messages) {
    std::vector<Row> rows;
    std::array<std::size_t, 6> widths{};
    for (const ListedMessage& message : messages) {
        const Row& row = rows.emplace_back(rowOf(message));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], codePointCount(row[i]));
    }
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += row[i] + std::string(widths[i] - codePointCount(row[i]) + 2, ' ');
        out << trimRight(line) << '\n';
    }
}

void printJson(std::ostream& out, const std::vector<ListedMessage>& messages) {
    for (const ListedMessage& message : messages) {
        const SECSMessageRecord& record = message.record;
        const nlohmann::ordered_json line{{"name", record.getName()},
                                          {"stream", record.getStream()},
                                          {"function", record.getFunction()},
                                          {"wait", record.getWait()},
                                          {"reply", record.getReply()},
                                          {"nologging", record.getNoLogging()},
                                          {"direction", record.getDirection()},
                                          {"items", message.items},
                                          {"description", record.getDescription()}};
        out << line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    }
}

} // namespace

std::string ListVerb::example() const {
    return "zbc list Etcher.zbp --json | jq 'select(.stream == 6) | .name'\n"
           "  Without --json each line has name, stream and function, W or -, direction, number of data\n"
           "  items with lists counted, and description.";
}

void ListVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp")->type_name("FILE")->required();
    app.add_flag("--json", json_, "One JSON object a message");
}

int ListVerb::run(ConsoleStreams streams) {
    LoadedProject project;
    if (const int status = project.load(project_, streams); status != kExitDone)
        return status;
    const auto messages = messagesOf(project.tree);
    if (json_)
        printJson(streams.out, messages);
    else
        printTable(streams.out, messages);
    return kExitDone;
}

} // namespace zb
