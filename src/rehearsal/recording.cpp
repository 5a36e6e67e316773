#include "rehearsal/recording.h"

#include "rehearsal/capture.h"
#include "rehearsal/log_recording.h"

#include <array>
#include <fstream>

namespace zb::rehearsal {

Result<std::unique_ptr<Recording>> openRecording(const std::filesystem::path& path,
                                                 const RecordingOptions& options) {
    Result<LineSource> lines = LineSource::open(path);
    if (!lines)
        return lines.error();
    std::array<char, 4> start{};
    std::ifstream file(path, std::ios::binary);
    file.read(start.data(), start.size());
    if (isCapture({start.data(), static_cast<std::size_t>(file.gcount())}))
        return openCapture(path, options);
    return std::unique_ptr<Recording>(std::make_unique<LogRecording>(*std::move(lines), options));
}

std::unique_ptr<Recording> openLogText(std::string text, const RecordingOptions& options) {
    return std::make_unique<LogRecording>(LineSource::ofText(std::move(text)), options);
}

} // namespace zb::rehearsal
