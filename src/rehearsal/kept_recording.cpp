#include "rehearsal/kept_recording.h"

#include <utility>

namespace zb::rehearsal {

namespace {

void takeFaults(Recording& recording, const KeptLimits& limits, KeptRecording& kept) {
    for (RecordingFault& fault : recording.takeFaults()) {
        ++kept.faultCount;
        if (kept.faults.size() < limits.faults)
            kept.faults.push_back(std::move(fault));
    }
}

} // namespace

std::size_t memoryOf(const RecordedMessage& message) {
    return sizeof(message) + message.items.memory() + message.fault.size() + message.place.size();
}

Result<KeptRecording> keepRecording(const std::filesystem::path& path, const RecordingOptions& options,
                                    const KeptLimits& limits) {
    const auto recording = openRecording(path, options);
    if (!recording)
        return recording.error();
    KeptRecording kept;
    std::size_t bytes = 0;
    RecordedMessage message;
    while (!kept.isCut && (*recording)->next(message)) {
        bytes += memoryOf(message);
        kept.isCut = kept.messages.size() >= limits.messages || bytes > limits.bytes;
        if (!kept.isCut)
            kept.messages.push_back(std::exchange(message, {}));
        takeFaults(**recording, limits, kept);
    }
    takeFaults(**recording, limits, kept);
    return kept;
}

} // namespace zb::rehearsal
