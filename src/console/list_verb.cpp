#include "console/verbs.h"

#include "console/message_source.h"
#include "console/printable.h"
#include "console/project_loading.h"
#include "console/text_table.h"
#include "console/transaction_list.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

namespace zb {

namespace {

/// The number of all items of a message, including lists.
std::size_t itemCount(const SECSMessageRecord& record) {
    const std::string body = record.getBodyText();
    return static_cast<std::size_t>(std::count(body.begin(), body.end(), '\n'));
}

std::vector<std::string> rowOf(const SECSMessageRecord& record) {
    return {std::string(record.getName()),     record.getNumbersText(),
            record.getWait() ? "W" : "-",      std::string(record.getDirection()),
            std::to_string(itemCount(record)), std::string(record.getDescription())};
}

void printTable(std::ostream& out, const SECSLibraryStore::Records& messages) {
    TextTable table;
    for (const SECSMessageRecord* message : messages)
        table.add(rowOf(*message));
    for (const std::string& line : table.lines())
        out << line << '\n';
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
        out << printableJson(line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)) << '\n';
    }
}

/// `zbc list FILE|gem|semi [--json] [--transactions]`
class ListVerb final : public Verb {
public:
    std::string name() const override { return "list"; }
    std::string summary() const override { return "List the messages of a project or library"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    int listTransactions(ConsoleStreams streams) const;

    std::string source_;
    bool json_ = false;
    bool transactions_ = false;
};

} // namespace

std::string ListVerb::example() const {
    return R"(zbc list Etcher.zbp --json | jq 'select(.stream == 6) | .name'
  Without --json each line has name, stream and function, W or -, direction, number of data items
  including lists, and description. With --transactions each message has name, SECS message, report
  or -, and condition, followed by its items or its data.)";
}

void ListVerb::declare(CLI::App& app) {
    app.add_option("FILE", source_, "A project *.zbp, a library *.smd, *.mdf or *.sml, or gem or semi")
        ->type_name("")
        ->required();
    app.add_flag("--json", json_, "One JSON object per message");
    app.add_flag("--transactions", transactions_, "The transaction model of a project, and its sequences");
}

int ListVerb::run(ConsoleStreams streams) {
    if (transactions_)
        return listTransactions(streams);
    MessageSource source;
    const int status = source.load(source_, streams);
    if (json_)
        printJson(streams.out, source.messages());
    else
        printTable(streams.out, source.messages());
    return status;
}

int ListVerb::listTransactions(ConsoleStreams streams) const {
    const SourceKind kind = sourceKind(source_);
    if (kind != SourceKind::Project && kind != SourceKind::Unknown) {
        streams.err << "zbc: --transactions needs a project (see zbc --help)\n";
        return kExitUsage;
    }
    int status = kExitDone;
    const auto file = loadProject(source_, streams, status);
    if (!file)
        return status;
    const Project& project = file->project;
    if (json_)
        printTransactionsAsJson(streams.out, *project.model, project.sequences);
    else
        printTransactions(streams.out, *project.model, project.sequences);
    return kExitDone;
}

std::unique_ptr<Verb> makeListVerb() {
    return std::make_unique<ListVerb>();
}

} // namespace zb
