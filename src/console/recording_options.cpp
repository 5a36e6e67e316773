#include "console/recording_options.h"

#include "platform/printable.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace zb {

void RecordingArguments::declare(CLI::App& app) {
    app.add_option("RECORDING", path_, "A log of messages, or a capture *.pcap or *.pcapng")
        ->type_name("FILE")
        ->required();
    app.add_option("--port", port_,
                   "The TCP port of the passive side; without it, every connection with HSMS is read")
        ->type_name("NUMBER")
        ->check(CLI::Range(1, 65535));
    app.add_option("--side", side_, "The side of the program that wrote the log or opened the link")
        ->type_name("host|equipment")
        ->check(CLI::IsMember({"host", "equipment"}));
}

std::unique_ptr<rehearsal::Recording> RecordingArguments::open(Side usualWriter, ConsoleStreams streams,
                                                               int& status) const {
    rehearsal::RecordingOptions options;
    options.usualWriter = usualWriter;
    if (port_ != 0)
        options.port = port_;
    if (!side_.empty())
        options.side = side_ == "host" ? Side::Host : Side::Equipment;
    auto recording = rehearsal::openRecording(path_, options);
    if (recording)
        return std::move(recording).value();
    streams.err << printable(path_) << ": cannot be read: " << printable(recording.error().description)
                << '\n';
    // A capture that is damaged at its start was read, but is no capture.
    status = recording.error().number == 0 ? kExitFault : kExitFileFault;
    return nullptr;
}

bool RecordingArguments::reportFaults(rehearsal::Recording& recording, ConsoleStreams streams) const {
    const auto faults = recording.takeFaults();
    for (const rehearsal::RecordingFault& fault : faults)
        streams.err << printable(path_) << ": " << fault.place << ": " << printable(fault.text) << '\n';
    return !faults.empty();
}

} // namespace zb
