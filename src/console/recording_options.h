#pragma once

#include "console/verb.h"
#include "rehearsal/recording.h"

#include <memory>
#include <string>

namespace zb {

/// The options that say what a recording does not, shared by the verbs that read one.
class RecordingArguments {
public:
    /// Adds RECORDING, --port and --side.
    void declare(CLI::App& app);
    const std::string& path() const { return path_; }

    /// Opens the recording. Prints on one line why it cannot be read, and sets the exit status.
    std::unique_ptr<rehearsal::Recording> open(Side usualWriter, ConsoleStreams streams, int& status) const;
    /// Prints what could not be read since the last call, one line each; true when there was something.
    bool reportFaults(rehearsal::Recording& recording, ConsoleStreams streams) const;

private:
    std::string path_;
    std::string side_;
    int port_ = 0;
};

} // namespace zb
