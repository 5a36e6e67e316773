#pragma once

#include "support/temporary_folder.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace zb::bench {

/// The lot of the regular day, again and again, in a file that is written piece by piece.
class LongRecording {
public:
    /// `ending` is ".log" for a log in SML, or ".pcap".
    LongRecording(std::size_t messages, const std::string& ending);

    const std::filesystem::path& path() const { return path_; }
    /// The messages asked for, or some more.
    std::size_t messages() const { return messages_; }
    std::size_t bytes() const { return bytes_; }

private:
    test::TemporaryFolder folder_;
    std::filesystem::path path_;
    std::size_t messages_ = 0;
    std::size_t bytes_ = 0;
};

} // namespace zb::bench
