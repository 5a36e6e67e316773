#include "console/verbs.h"

#include "console/message_source.h"
#include "console/printable.h"
#include "console/project_loading.h"
#include "messages/library_drop.h"
#include "messages/smd/smd_text.h"
#include "platform/file_layer.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/user_folders.h"
#include "project/project_file_writer.h"
#include "project/project_text.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <ostream>
#include <set>

namespace zb {

namespace {

constexpr std::chrono::seconds kLongestWait{30};

/// The entries of a drag for these messages, in the order of their rows.
std::vector<std::string> entriesOf(SECSLibraryStore::Records records) {
    std::stable_sort(records.begin(), records.end(), [](const auto* left, const auto* right) {
        return std::pair(left->getStream(), left->getFunction()) <
               std::pair(right->getStream(), right->getFunction());
    });
    std::vector<std::string> entries;
    for (const SECSMessageRecord* record : records)
        entries.push_back(record->getNumbersText(" "));
    return entries;
}

/// Collects what a drop would add. Messages that the project already has are reported where a drop reports
/// them.
class TakenMessages {
public:
    TakenMessages(const ProjectMessages& messages, std::string file, std::ostream& err)
        : file_(std::move(file)), err_(err) {
        for (const SECSMessageRecord& record : messages.records())
            names_.insert(upper(before(record.getNodeText(), ": ")));
    }

    void take(const MessageSource& library, const DropStep& step) {
        for (const SECSMessageRecord* record : library.byStreamFunction(step.streamFunction)) {
            if (names_.insert(upper(record->getName())).second)
                taken_.push_back(record);
            else if (step.reportsDuplicates)
                reportDuplicate(record->getName());
        }
    }
    const SECSLibraryStore::Records& taken() const { return taken_; }
    bool reportedDuplicates() const { return reported_; }

private:
    void reportDuplicate(std::string_view name) {
        err_ << printable(file_) << ": " << printable(name) << " already exists.\n";
        reported_ = true;
    }

    std::string file_;
    std::ostream& err_;
    std::set<std::string> names_; // upper-cased
    SECSLibraryStore::Records taken_;
    bool reported_ = false;
};

/// `zbc add PROJECT.zbp LIBRARY NAME...`
class AddVerb final : public Verb {
public:
    std::string name() const override { return "add"; }
    std::string summary() const override { return "Put messages of a library into a project"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    int write(ProjectFileWriter& writer, const std::string& before, const std::string& after,
              ConsoleStreams streams) const;

    std::string project_;
    std::string library_;
    std::vector<std::string> names_;
};

} // namespace

std::string AddVerb::example() const {
    return R"(zbc add Etcher.zbp semi S1F13 S6F11
  Adds the messages with their replies, as a drag from the library does, and prints the names of
  the added messages. A NAME is the name of a message or its stream and function. LIBRARY is gem,
  semi, or a file that ends in .zbp, .smd, .mdf or .sml.)";
}

void AddVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp")->type_name("FILE")->required();
    app.add_option("LIBRARY", library_, "The library: gem, semi, or a file")->type_name("FILE")->required();
    app.add_option("NAME", names_, "The messages to add")->required();
}

int AddVerb::run(ConsoleStreams streams) {
    // From the read to the write: what others add meanwhile would be lost.
    SystemFileLayer files;
    ProjectFileWriter writer(files, stateFolder(), project_, kLongestWait);
    if (writer.isBusy()) {
        streams.err << printable(project_) << ": cannot be written: another program keeps writing it\n";
        return kExitFileFault;
    }
    int status = kExitDone;
    const auto file = loadProject(project_, streams, status);
    if (!file)
        return status;
    MessageSource library;
    const int libraryStatus = library.load(library_, streams);
    if (libraryStatus != kExitDone && library.messages().empty())
        return libraryStatus;
    std::set<const SECSMessageRecord*> chosen;
    SECSLibraryStore::Records rows;
    for (const std::string& name : names_) {
        const SECSLibraryStore::Records named = library.select(name);
        if (named.empty()) {
            streams.err << printable(library_) << ": " << printable(name) << ": there is no such message\n";
            return kExitFault;
        }
        std::copy_if(named.begin(), named.end(), std::back_inserter(rows),
                     [&chosen](const auto* record) { return chosen.insert(record).second; });
    }
    TakenMessages taking(file->project.messages, project_, streams.err);
    for (const DropStep& step : planDrop(entriesOf(std::move(rows))))
        taking.take(library, step);
    if (!taking.taken().empty()) {
        const std::string text = insertMessages(file->text, composeSmd(taking.taken(), SmdForm::Project));
        status = write(writer, file->text, text, streams);
        if (status != kExitDone)
            return status;
    }
    for (const SECSMessageRecord* record : taking.taken())
        streams.out << printable(record->getName()) << '\n';
    const bool reported = !reportColons(taking.taken(), project_, streams.err) || taking.reportedDuplicates();
    return reported ? kExitFault : libraryStatus;
}

int AddVerb::write(ProjectFileWriter& writer, const std::string& before, const std::string& after,
                   ConsoleStreams streams) const {
    // A program that takes no lock may have written since.
    const Result<std::string> now = readBytes(project_);
    if (!now || decodeProject(*now).text != before) {
        streams.err << printable(project_)
                    << ": was changed by another program meanwhile: nothing is added\n";
        return kExitFileFault;
    }
    if (const Result<void> written = writer.write(encodeUtf16(after)); !written) {
        streams.err << printable(project_)
                    << ": cannot be written: " << printable(written.error().description) << '\n';
        return kExitFileFault;
    }
    if (!writer.kept())
        reportUnkeptVersion(streams.err, project_, writer.kept().error());
    return kExitDone;
}

std::unique_ptr<Verb> makeAddVerb() {
    return std::make_unique<AddVerb>();
}

} // namespace zb
