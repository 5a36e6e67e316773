#pragma once

#include "messages/secs2/item_codec.h"
#include "messages/secs2/sml_data.h"
#include "rehearsal/recording.h"
#include "support/temporary_folder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zb::test {

/// The messages of a recording, one line each, and its faults.
struct Recorded {
    std::vector<std::string> messages;
    std::vector<std::string> faults;
};

/// "2022-12-15T15:36:24.666 H<-E S1F13 W 11 <L [1] <A [1] "x"> >"; what is unknown is "-".
inline std::string lineOf(const rehearsal::RecordedMessage& message) {
    std::string line = (message.time ? message.time->text() : "-") + " ";
    line.append(arrowOf(message.direction)).append(" ").append(message.label());
    line += message.header.wait ? " W " : " ";
    line += message.hasSystem ? std::to_string(message.header.system) : "-";
    std::string data;
    secs2::appendSmlData(data, message.items, 0);
    for (bool blank = true; const char c : data) {
        const bool isBlank = c == ' ' || c == '\n';
        if (!isBlank)
            line.append(blank ? " " : "").append(1, c);
        blank = isBlank;
    }
    return message.fault.empty() ? line : line + " ! " + message.fault;
}

inline Recorded recordedOf(rehearsal::Recording& recording) {
    Recorded recorded;
    rehearsal::RecordedMessage message;
    while (recording.next(message))
        recorded.messages.push_back(lineOf(message));
    for (const auto& fault : recording.takeFaults())
        recorded.faults.push_back(fault.place + ": " + fault.text);
    return recorded;
}

inline Recorded readLog(const std::string& text, const rehearsal::RecordingOptions& options = {}) {
    const auto recording = rehearsal::openLogText(text, options);
    return recordedOf(*recording);
}

inline Recorded readFile(const std::string& bytes, const rehearsal::RecordingOptions& options = {}) {
    const TemporaryFolder folder;
    const auto path = folder / "recording";
    std::ofstream(path, std::ios::binary) << bytes;
    auto recording = rehearsal::openRecording(path, options);
    if (!recording)
        return {{}, {recording.error().description}};
    return recordedOf(**recording);
}

} // namespace zb::test
