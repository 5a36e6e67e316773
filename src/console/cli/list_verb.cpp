#include "console/cli/list_verb.h"

#include "console/cli/message_source.h"
#include "console/cli/printable.h"
#include "platform/text.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

namespace zb {

namespace {

using Row = std::array<std::string, 6>;

/// All items of a message, lists included.
std::size_t itemCount(const SECSMessageRecord& record) {
    const std::string body = record.getBodyText();
    return static_cast<std::size_t>(std::count(body.begin(), body.end(), '\n'));
}

Row rowOf(const SECSMessageRecord& record) {
    return {record.getName(),
            "S" + record.getStreamText() + "F" + record.getFunctionText(),
            record.getWait() ? "W" : "-",
            record.getDirection(),
            std::to_string(itemCount(record)),
            record.getDescription()};
}

/// Columns are as wide as their longest text; nothing stands behind the last one.
void printTable(std::ostream& out, const SECSLibraryStore::Records& messages) {
    std::vector<Row> rows;
    std::array<std::size_t, 6> widths{};
    for (const SECSMessageRecord* message : messages) {
        const Row& row = rows.emplace_back(rowOf(*message));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], codePointCount(row[i]));
    }
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += printable(row[i]) + std::string(widths[i] - codePointCount(row[i]) + 2, ' ');
        out << trimRight(line) << '\n';
    }
}

void printJson(std::ostream& out, const SECSLibraryStore::Records& messages) {
    for (const SECSMessageRecord* message : messages) {
        const SECSMessageRecord& record = *message;
        const nlohmann::ordered_json line{{"name", record.getName()},
                                          {"stream", record.getStream()},
                                          {"function", record.getFunction()},
                                          {"wait", record.getWait()},
                                          {"reply", record.getReply()},
                                          {"nologging", record.getNoLogging()},
                                          {"direction", record.getDirection()},
                                          {"items", itemCount(record)},
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
    app.add_option("PROJECT", source_, "A project *.zbp, a library *.smd, *.mdf or *.sml, or gem or semi")
        ->type_name("FILE")
        ->required();
    app.add_flag("--json", json_, "One JSON object a message");
}

int ListVerb::run(ConsoleStreams streams) {
    MessageSource source;
    const int status = source.load(source_, streams);
    if (json_)
        printJson(streams.out, source.messages());
    else
        printTable(streams.out, source.messages());
    return status;
}

} // namespace zb
