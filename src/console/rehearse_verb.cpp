#include "console/verbs.h"

#include "console/expected_result.h"
#include "console/printable.h"
#include "console/project_loading.h"
#include "console/recording_options.h"
#include "console/verdict_text.h"
#include "rehearsal/rehearsal.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace zb {

namespace {

/// `zbc rehearse PROJECT.zbp RECORDING [--json] [--port N] [--side host|equipment] [--control] [--expect
/// FILE]`
class RehearseVerb final : public Verb {
public:
    std::string name() const override { return "rehearse"; }
    std::string summary() const override { return "Run recorded messages through the model of a project"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    int rehearse(rehearsal::Recording& recording, rehearsal::Rehearsal& rehearsal, ConsoleStreams streams);
    void show(const rehearsal::Verdict& verdict, ConsoleStreams streams);
    void reportDifferences(const std::vector<std::string>& differences, ConsoleStreams streams);
    void printSummary(const rehearsal::Rehearsal& rehearsal, ConsoleStreams streams) const;

    std::string project_;
    RecordingArguments recording_;
    std::string expectedPath_;
    bool json_ = false;
    bool control_ = false;
    std::optional<ExpectedResult> expected_;
    bool isEmpty_ = true; ///< the recording has no message of any kind
    std::size_t messages_ = 0;
    std::size_t deviating_ = 0;
    std::size_t differences_ = 0;
};

} // namespace

std::string RehearseVerb::example() const {
    return R"(zbc rehearse Etcher.zbp monday.pcapng
  Prints a line for each message: time, direction, stream and function, the message and the TR
  message that it is, its place in a sequence, the values of the TR items. What is not as modelled
  follows, marked "!", and makes the exit status 1.
zbc rehearse Etcher.zbp monday.pcapng --json > monday.json
zbc rehearse Etcher.zbp monday.pcapng --expect monday.json
  The first prints one JSON object per message. The second prints how the result differs from the
  earlier one, and only a difference makes the exit status 1.)";
}

void RehearseVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp")->type_name("FILE")->required();
    recording_.declare(app);
    app.add_flag("--json", json_, "One JSON object per message");
    app.add_flag("--control", control_, "Also show control messages, as Select.req");
    app.add_option("--expect", expectedPath_, "Compare with an earlier result of --json")->type_name("FILE");
}

int RehearseVerb::run(ConsoleStreams streams) {
    int status = kExitDone;
    const auto file = loadProject(project_, streams, status);
    if (!file)
        return status;
    if (!expectedPath_.empty()) {
        Result<ExpectedResult> expected = ExpectedResult::open(expectedPath_);
        if (!expected) {
            streams.err << printable(expectedPath_)
                        << ": cannot be read: " << printable(expected.error().description) << '\n';
            return kExitFileFault;
        }
        expected_ = *std::move(expected);
    }
    const auto recording = recording_.open(file->project.side, streams, status);
    if (!recording)
        return status;
    rehearsal::Rehearsal rehearsal(file->project, codePageOfUser());
    return rehearse(*recording, rehearsal, streams);
}

int RehearseVerb::rehearse(rehearsal::Recording& recording, rehearsal::Rehearsal& rehearsal,
                           ConsoleStreams streams) {
    bool faulty = false;
    rehearsal::RecordedMessage message;
    while (recording.next(message)) {
        rehearsal.add(std::move(message));
        while (const auto verdict = rehearsal.take())
            show(*verdict, streams);
        faulty = recording_.reportFaults(recording, streams) || faulty;
    }
    faulty = recording_.reportFaults(recording, streams) || faulty;
    rehearsal.finish();
    while (const auto verdict = rehearsal.take())
        show(*verdict, streams);
    if (expected_)
        reportDifferences(expected_->finish(), streams);
    if (isEmpty_) {
        streams.err << printable(recording_.path()) << ": no message was found\n";
        faulty = true;
    }
    if (!json_ && !expected_)
        printSummary(rehearsal, streams);
    const bool deviates = expected_ ? differences_ > 0 : deviating_ > 0;
    return faulty || deviates ? kExitFault : kExitDone;
}

void RehearseVerb::show(const rehearsal::Verdict& verdict, ConsoleStreams streams) {
    isEmpty_ = false;
    if (verdict.message.header.isControl() && !control_)
        return;
    ++messages_;
    deviating_ += verdict.findings.empty() ? 0 : 1;
    if (json_ || expected_) {
        const std::string json = verdictJson(verdict);
        if (json_)
            streams.out << json << '\n';
        if (expected_)
            reportDifferences(expected_->compare(json), streams);
        return;
    }
    streams.out << verdictLines(verdict);
}

void RehearseVerb::reportDifferences(const std::vector<std::string>& differences, ConsoleStreams streams) {
    differences_ += differences.size();
    for (const std::string& difference : differences)
        streams.err << printable(recording_.path()) << ": " << printable(difference) << '\n';
}

void RehearseVerb::printSummary(const rehearsal::Rehearsal& rehearsal, ConsoleStreams streams) const {
    streams.out << counted(messages_, "message") << ", " << deviating_ << " not as modelled\n";
    for (const rehearsal::SequencePlace& place : rehearsal.unfinishedSequences())
        streams.out << "sequence " << printable(place.name) << ": the recording ends after step "
                    << place.step << " of " << place.steps << '\n';
}

std::unique_ptr<Verb> makeRehearseVerb() {
    return std::make_unique<RehearseVerb>();
}

} // namespace zb
