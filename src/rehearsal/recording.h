#pragma once

#include "platform/progress.h"
#include "platform/result.h"
#include "project/project.h"
#include "rehearsal/recorded_message.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zb::rehearsal {

/// What a recording does not say itself.
struct RecordingOptions {
    /// The TCP port of the passive side. Without it every connection that carries HSMS is read.
    std::optional<int> port;
    /// The side of the program that wrote a log, or that opened the link of a capture.
    std::optional<Side> side;
    /// The writer of a log that contains no evidence of its side.
    Side usualWriter = Side::Host;
    /// Learns how much of the file has been read; cancels the reading.
    Progress progress = {};
};

/// A part of a recording that could not be read.
struct RecordingFault {
    std::string place; ///< "line 12", "offset 4096", "packet 7"
    std::string text;  ///< a sentence on one line
};

/// The messages of a recording in the order of the recording, read one by one: memory does not grow with the
/// recording.
class Recording {
public:
    virtual ~Recording() = default;
    /// Replaces `message` by the next one; false at the end. Control messages are included.
    virtual bool next(RecordedMessage& message) = 0;
    /// What could not be read since the last call; complete after the end.
    virtual std::vector<RecordingFault> takeFaults() = 0;
};

/// Opens a capture or a log; the kind is recognised by the content. The error is the system's when the file
/// cannot be read, or has number 0 for a capture that is damaged at its start.
Result<std::unique_ptr<Recording>> openRecording(const std::filesystem::path& path,
                                                 const RecordingOptions& options);
/// A log that is in memory, as a message that was typed.
std::unique_ptr<Recording> openLogText(std::string text, const RecordingOptions& options);

} // namespace zb::rehearsal
