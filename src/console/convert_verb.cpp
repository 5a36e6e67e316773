#include "console/verbs.h"

#include "console/library_bytes.h"
#include "console/message_files.h"
#include "console/message_source.h"
#include "console/output_guard.h"
#include "console/printable.h"
#include "messages/bare_sml.h"
#include "platform/file_replacer.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <ostream>
#include <set>
#include <system_error>

namespace zb {

namespace {

constexpr const char* kMessageFileEnding = ".sml";

bool isBuiltIn(SourceKind kind) {
    return kind == SourceKind::Gem || kind == SourceKind::Semi;
}

/// The named messages, in the order of the source and each once. Names without a message are reported.
bool takeSelection(const MessageSource& source, const std::string& file,
                   const std::vector<std::string>& names, SECSLibraryStore::Records& records,
                   std::ostream& err) {
    std::set<const SECSMessageRecord*> chosen;
    bool found = true;
    for (const std::string& name : names) {
        const SECSLibraryStore::Records named = source.select(name);
        chosen.insert(named.begin(), named.end());
        if (named.empty())
            err << printable(file) << ": " << printable(name) << ": there is no such message\n";
        found = found && !named.empty();
    }
    records.clear();
    std::copy_if(source.messages().begin(), source.messages().end(), std::back_inserter(records),
                 [&chosen](const auto* record) { return chosen.count(record) > 0; });
    return found;
}

/// `zbc convert IN OUT [--messages S1F13,S6F11] [--sml bare]`, `zbc convert IN --split DIR`
class ConvertVerb final : public Verb {
public:
    std::string name() const override { return "convert"; }
    std::string summary() const override { return "Turn messages from one file format into another"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    /// Empty when the options fit together.
    std::string misuse() const;
    int write(const OutputGuard& guard, const SECSLibraryStore::Records& records,
              ConsoleStreams streams) const;
    int split(const FolderGuard& guard, const SECSLibraryStore::Records& records,
              ConsoleStreams streams) const;
    int makeFolder(std::ostream& err) const;
    std::string bytesOf(const SECSLibraryStore::Records& records, SourceKind kind, std::ostream& err) const;

    std::string in_;
    std::string out_;
    std::string folder_;
    std::string sml_;
    std::vector<std::string> selection_;
};

} // namespace

std::string ConvertVerb::example() const {
    return R"(zbc convert vendor.sml Etcher.smd --messages S1F13,S6F11
  Writes the named messages, or all without --messages, and prints the file's path and their
  number. IN is a file or one of the built-in libraries gem and semi. The ending of a file name
  selects its format: .zbp, .smd, .mdf or .sml. Messages of IN that cannot be read are reported,
  and the others are written. An existing project is never overwritten (see zbc add).

zbc convert Etcher.zbp --split simulator --sml bare
  Writes an SML file for each message to the folder simulator, which is made when it is missing.
  Bare SML has no names, counts or comments, since readers of simulators often refuse them.)";
}

void ConvertVerb::declare(CLI::App& app) {
    app.add_option("IN", in_, "The file with the messages, or gem or semi")->type_name("FILE")->required();
    app.add_option("OUT", out_, "The file to write")->type_name("FILE");
    app.add_option("--messages", selection_, "Names of messages, or S1F13, separated by commas")
        ->type_name("NAMES")
        ->delimiter(',');
    app.add_option("--sml", sml_, "Write SML with names, counts and comments (full) or without (bare)")
        ->type_name("FORM")
        ->check(CLI::IsMember({"full", "bare"}));
    app.add_option("--split", folder_, "Write one SML file for each message to this folder")
        ->type_name("DIR");
}

std::string ConvertVerb::misuse() const {
    if (out_.empty() == folder_.empty())
        return "one of OUT and --split is needed";
    if (!folder_.empty())
        return {};
    const SourceKind target = sourceKind(out_);
    if (target == SourceKind::Unknown || isBuiltIn(target))
        return printable(out_) + " does not end in " + kSourceEndings;
    return target == SourceKind::Sml || sml_.empty() ? std::string() : "--sml is for files that end in .sml";
}

int ConvertVerb::run(ConsoleStreams streams) {
    if (const std::string why = misuse(); !why.empty()) {
        streams.err << "zbc: " << why << " (see zbc --help)\n";
        return kExitUsage;
    }
    std::error_code ignored;
    if (!out_.empty() && sourceKind(out_) == SourceKind::Project && std::filesystem::exists(out_, ignored)) {
        streams.err << printable(out_) << ": is there already: zbc add puts messages into a project\n";
        return kExitFault;
    }
    const OutputGuard guard(out_);
    const FolderGuard folderGuard(folder_, kMessageFileEnding);
    MessageSource source;
    const int status = source.load(in_, streams);
    if (status != kExitDone && source.messages().empty())
        return status;
    SECSLibraryStore::Records records = source.messages();
    if (!selection_.empty() && !takeSelection(source, in_, selection_, records, streams.err))
        return kExitFault;
    const int written =
        folder_.empty() ? write(guard, records, streams) : split(folderGuard, records, streams);
    return written == kExitDone ? status : written;
}

int ConvertVerb::write(const OutputGuard& guard, const SECSLibraryStore::Records& records,
                       ConsoleStreams streams) const {
    if (!guard.isUnchanged()) {
        streams.err << printable(out_) << ": was changed by another program meanwhile: nothing is written\n";
        return kExitFileFault;
    }
    if (const Result<void> written = replaceFile(out_, bytesOf(records, sourceKind(out_), streams.err));
        !written) {
        streams.err << printable(out_) << ": cannot be written: " << printable(written.error().description)
                    << '\n';
        return kExitFileFault;
    }
    streams.out << printable(out_) << ": " << counted(records.size(), "message") << '\n';
    const bool project = sourceKind(out_) == SourceKind::Project;
    return !project || reportColons(records, out_, streams.err) ? kExitDone : kExitFault;
}

int ConvertVerb::makeFolder(std::ostream& err) const {
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (!error)
        return kExitDone;
    err << printable(folder_) << ": cannot be made: " << error.message() << '\n';
    return kExitFileFault;
}

int ConvertVerb::split(const FolderGuard& guard, const SECSLibraryStore::Records& records,
                       ConsoleStreams streams) const {
    if (const int made = makeFolder(streams.err); made != kExitDone)
        return made;
    const std::filesystem::path folder(folder_);
    const std::vector<std::string> names = messageFileNames(records, kMessageFileEnding);
    const auto changed = std::find_if_not(names.begin(), names.end(),
                                          [&](const auto& name) { return guard.isUnchanged(name); });
    if (changed != names.end()) {
        streams.err << printable((folder / *changed).string())
                    << ": was changed by another program meanwhile: nothing is written\n";
        return kExitFileFault;
    }
    for (std::size_t i = 0; i < records.size(); ++i) {
        const std::filesystem::path file = folder / names[i];
        const Result<void> written = replaceFile(file, bytesOf({records[i]}, SourceKind::Sml, streams.err));
        if (!written) {
            streams.err << printable(file.string())
                        << ": cannot be written: " << printable(written.error().description) << '\n';
            return kExitFileFault;
        }
    }
    streams.out << printable(folder_) << ": " << counted(records.size(), "message") << '\n';
    return kExitDone;
}

std::string ConvertVerb::bytesOf(const SECSLibraryStore::Records& records, SourceKind kind,
                                 std::ostream& err) const {
    if (kind != SourceKind::Sml || sml_ != "bare")
        return libraryBytes(records, kind);
    const BareSml sml = composeBareSml(records);
    for (const std::string& note : sml.notes)
        err << printable(folder_.empty() ? out_ : folder_) << ": " << printable(note) << '\n';
    return sml.text;
}

std::unique_ptr<Verb> makeConvertVerb() {
    return std::make_unique<ConvertVerb>();
}

} // namespace zb
