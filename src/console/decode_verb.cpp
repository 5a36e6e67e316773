#include "console/verbs.h"

#include "console/output_guard.h"
#include "console/printable.h"
#include "console/recording_options.h"
#include "messages/secs2/sml_data.h"
#include "platform/file_replacer.h"

#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <ostream>

namespace zb {

namespace {

/// The message with a comment line about its time, direction and system bytes.
std::string smlOf(const rehearsal::RecordedMessage& message) {
    std::string text = "// " + (message.time ? message.time->text() + " " : std::string()) +
                       std::string(arrowOf(message.direction));
    if (message.hasSystem) {
        std::array<char, 16> system;
        std::snprintf(system.data(), system.size(), " 0x%08X", static_cast<unsigned>(message.header.system));
        text += system.data();
    }
    text += '\n';
    if (!message.fault.empty())
        text += "// cannot be read: " + printable(message.fault) + "\n";
    text.append(message.label()).append(message.header.wait ? " W" : "");
    if (message.direction != rehearsal::Direction::Unknown)
        text.append(" // ").append(arrowOf(message.direction));
    text += '\n';
    secs2::appendSmlData(text, message.items, 0);
    return text += ".\n\n";
}

/// `zbc decode RECORDING [-o FILE]`
class DecodeVerb final : public Verb {
public:
    std::string name() const override { return "decode"; }
    std::string summary() const override { return "Print the messages of a recording as SML"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    RecordingArguments recording_;
    std::string out_;
};

} // namespace

std::string DecodeVerb::example() const {
    return R"(zbc decode monday.pcapng -o monday.sml
  Writes each message as SML after a comment with its time, direction and system bytes. Without -o
  the text goes to standard output, message by message. Control messages are left out. What cannot
  be read is reported, and makes the exit status 1.)";
}

void DecodeVerb::declare(CLI::App& app) {
    recording_.declare(app);
    app.add_option("-o,--output", out_, "The file to write")->type_name("FILE");
}

int DecodeVerb::run(ConsoleStreams streams) {
    if (const std::string why = outputMisuse(out_, {recording_.path()}); !why.empty()) {
        streams.err << "zbc: --output: " << why << " (see zbc --help)\n";
        return kExitUsage;
    }
    int status = kExitDone;
    const auto recording = recording_.open(Side::Host, streams, status);
    if (!recording)
        return status;
    std::string text;
    std::size_t messages = 0;
    bool faulty = false;
    rehearsal::RecordedMessage message;
    while (recording->next(message)) {
        if (!message.header.isControl()) {
            ++messages;
            faulty = faulty || !message.fault.empty();
            if (!message.fault.empty())
                streams.err << printable(recording_.path()) << ": " << message.place << ": "
                            << message.label() << ": " << printable(message.fault) << '\n';
            if (out_.empty())
                streams.out << smlOf(message);
            else
                text += smlOf(message);
        }
        faulty = recording_.reportFaults(*recording, streams) || faulty;
    }
    faulty = recording_.reportFaults(*recording, streams) || faulty;
    if (messages == 0) {
        streams.err << printable(recording_.path()) << ": no message was found\n";
        return kExitFault;
    }
    if (out_.empty())
        return faulty ? kExitFault : kExitDone;
    if (const Result<void> written = replaceFile(out_, text); !written) {
        streams.err << printable(out_) << ": cannot be written: " << printable(written.error().description)
                    << '\n';
        return kExitFileFault;
    }
    streams.out << printable(out_) << ": " << counted(messages, "message") << '\n';
    return faulty ? kExitFault : kExitDone;
}

std::unique_ptr<Verb> makeDecodeVerb() {
    return std::make_unique<DecodeVerb>();
}

} // namespace zb
