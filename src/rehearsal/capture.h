#pragma once

#include "rehearsal/recording.h"

#include <string_view>

namespace zb::rehearsal {

/// Whether a file with these first bytes is a capture, pcap or pcapng.
bool isCapture(std::string_view firstBytes);
/// Opens a capture; see openRecording.
Result<std::unique_ptr<Recording>> openCapture(const std::filesystem::path& path,
                                               const RecordingOptions& options);

} // namespace zb::rehearsal
