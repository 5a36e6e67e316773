#include "console/verbs.h"

#include "console/library_bytes.h"
#include "console/output_guard.h"
#include "console/printable.h"
#include "console/recording_options.h"
#include "platform/file_replacer.h"
#include "rehearsal/learner.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <ostream>

namespace zb {

namespace {

bool isWritable(SourceKind kind) {
    return kind == SourceKind::Sml || kind == SourceKind::Smd || kind == SourceKind::Project;
}

/// `zbc learn RECORDING OUT.sml|.smd|.zbp`
class LearnVerb final : public Verb {
public:
    std::string name() const override { return "learn"; }
    std::string summary() const override { return "Derive message definitions from a recording"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    int write(const std::vector<SECSMessageRecord>& records, ConsoleStreams streams) const;

    RecordingArguments recording_;
    std::string out_;
};

} // namespace

std::string LearnVerb::example() const {
    return R"(zbc learn monday.pcapng Etcher.sml
  Writes one definition for each distinct structure of a stream and function, with variable counts
  where they varied, the names of the published layouts, and values of the recording as examples.
  The ending of OUT is .sml, .smd or .zbp. An existing project is never overwritten.)";
}

void LearnVerb::declare(CLI::App& app) {
    recording_.declare(app);
    app.add_option("OUT", out_, "The file to write")->type_name("FILE")->required();
}

int LearnVerb::run(ConsoleStreams streams) {
    if (!isWritable(sourceKind(out_))) {
        streams.err << "zbc: " << printable(out_) << " does not end in .sml, .smd or .zbp (see zbc --help)\n";
        return kExitUsage;
    }
    std::error_code ignored;
    if (std::filesystem::equivalent(out_, recording_.path(), ignored)) {
        streams.err << "zbc: " << printable(out_) << " is what is read (see zbc --help)\n";
        return kExitUsage;
    }
    if (sourceKind(out_) == SourceKind::Project && std::filesystem::exists(out_, ignored)) {
        streams.err << printable(out_) << ": is there already: zbc add puts messages into a project\n";
        return kExitFault;
    }
    const OutputGuard guard(out_);
    int status = kExitDone;
    const auto recording = recording_.open(Side::Host, streams, status);
    if (!recording)
        return status;
    rehearsal::Learner learner;
    rehearsal::RecordedMessage message;
    while (recording->next(message)) {
        learner.add(message);
        if (!message.fault.empty()) {
            streams.err << printable(recording_.path()) << ": " << message.place << ": " << message.label()
                        << ": " << printable(message.fault) << '\n';
            status = kExitFault;
        }
        if (recording_.reportFaults(*recording, streams))
            status = kExitFault;
    }
    if (recording_.reportFaults(*recording, streams))
        status = kExitFault;
    if (learner.leftOut() > 0) {
        streams.err << printable(recording_.path()) << ": " << counted(learner.leftOut(), "message")
                    << " left out: too many structures of one stream and function\n";
        status = kExitFault;
    }
    const std::vector<SECSMessageRecord> records = learner.records();
    if (records.empty()) {
        streams.err << printable(recording_.path()) << ": no message was found\n";
        return kExitFault;
    }
    if (!guard.isUnchanged()) {
        streams.err << printable(out_) << ": was changed by another program meanwhile: nothing is written\n";
        return kExitFileFault;
    }
    const int written = write(records, streams);
    return written == kExitDone ? status : written;
}

int LearnVerb::write(const std::vector<SECSMessageRecord>& records, ConsoleStreams streams) const {
    SECSLibraryStore::Records pointers;
    for (const SECSMessageRecord& record : records)
        pointers.push_back(&record);
    const SourceKind kind = sourceKind(out_);
    if (const Result<void> written = replaceFile(out_, libraryBytes(pointers, kind)); !written) {
        streams.err << printable(out_) << ": cannot be written: " << printable(written.error().description)
                    << '\n';
        return kExitFileFault;
    }
    streams.out << printable(out_) << ": " << counted(records.size(), "message") << '\n';
    return kind != SourceKind::Project || reportColons(pointers, out_, streams.err) ? kExitDone : kExitFault;
}

std::unique_ptr<Verb> makeLearnVerb() {
    return std::make_unique<LearnVerb>();
}

} // namespace zb
