#pragma once

#include "rehearsal/recording.h"

#include <cstddef>
#include <filesystem>
#include <vector>

namespace zb::rehearsal {

/// How much of a recording is kept in memory.
struct KeptLimits {
    std::size_t messages = 200'000;
    std::size_t bytes = std::size_t{512} << 20U; ///< of all messages together, roughly
    std::size_t faults = 1'000;
};

/// The messages of a recording in memory, so that they can be judged again and again.
struct KeptRecording {
    std::vector<RecordedMessage> messages;
    std::vector<RecordingFault> faults;
    std::size_t faultCount = 0; ///< with those that are not kept
    bool isCut = false;         ///< the recording has more messages than the limits allow
};

/// Reads a recording up to the limits. The errors are those of `openRecording`; `options.progress` can cancel
/// it.
Result<KeptRecording> keepRecording(const std::filesystem::path& path, const RecordingOptions& options,
                                    const KeptLimits& limits = {});

/// The memory that a message takes, roughly, in bytes.
std::size_t memoryOf(const RecordedMessage& message);

} // namespace zb::rehearsal
