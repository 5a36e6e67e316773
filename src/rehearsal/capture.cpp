#include "rehearsal/capture.h"

#include "rehearsal/packet_reader.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <pcap/pcap.h>

namespace zb::rehearsal {

namespace {

struct CloseCapture {
    void operator()(pcap_t* capture) const { pcap_close(capture); }
};
using CapturePointer = std::unique_ptr<pcap_t, CloseCapture>;

// Nothing for a time that only a damaged capture has: its nanoseconds do not fit 64 bits.
std::optional<RecordedTime> timeOf(const timeval& stamp) {
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    constexpr std::int64_t kLatest = std::numeric_limits<std::int64_t>::max() / kNanoseconds - 1;
    // The capture was opened for nanoseconds, which take the place of the microseconds.
    if (stamp.tv_sec < 0 || stamp.tv_sec > kLatest || stamp.tv_usec < 0 || stamp.tv_usec >= kNanoseconds)
        return std::nullopt;
    RecordedTime time;
    time.isUtc = true;
    time.nanoseconds = stamp.tv_sec * kNanoseconds + stamp.tv_usec;
    return time;
}

class Capture final : public Recording {
public:
    Capture(CapturePointer capture, std::size_t bytes, const RecordingOptions& options)
        : capture_(std::move(capture)), linkType_(pcap_datalink(capture_.get())), packets_(options),
          progress_(options.progress), bytes_(bytes) {}

    bool next(RecordedMessage& message) override {
        while (!packets_.take(message)) {
            if (ended_)
                return false;
            readPacket();
        }
        return true;
    }

    std::vector<RecordingFault> takeFaults() override {
        std::vector<RecordingFault> faults = packets_.takeFaults();
        if (fault_)
            faults.push_back(*std::exchange(fault_, std::nullopt));
        return faults;
    }

private:
    void readPacket() {
        pcap_pkthdr* header = nullptr;
        const unsigned char* data = nullptr;
        const int result = pcap_next_ex(capture_.get(), &header, &data);
        if (result == 1) {
            bytesRead_ += sizeof(pcap_pkthdr) + header->caplen;
            progress_.at(std::min(bytesRead_, bytes_), bytes_);
            packets_.add(linkType_, {reinterpret_cast<const char*>(data), header->caplen}, timeOf(header->ts),
                         ++number_);
            return;
        }
        ended_ = true;
        packets_.finish();
        if (result == PCAP_ERROR)
            fault_ = {"offset " + std::to_string(std::ftell(pcap_file(capture_.get()))),
                      "after packet " + std::to_string(number_) + ": " + pcap_geterr(capture_.get())};
    }

    CapturePointer capture_;
    int linkType_;
    PacketReader packets_;
    Progress progress_;
    std::size_t bytes_;         ///< of the file
    std::size_t bytesRead_ = 0; ///< roughly
    std::size_t number_ = 0;
    bool ended_ = false;
    std::optional<RecordingFault> fault_;
};

} // namespace

bool isCapture(std::string_view firstBytes) {
    for (const std::string_view magic :
         {"\xD4\xC3\xB2\xA1", "\xA1\xB2\xC3\xD4", "\x4D\x3C\xB2\xA1", "\xA1\xB2\x3C\x4D", "\x0A\x0D\x0D\x0A"})
        if (firstBytes.starts_with(magic))
            return true;
    return false;
}

Result<std::unique_ptr<Recording>> openCapture(const std::filesystem::path& path,
                                               const RecordingOptions& options) {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the library takes over a file that it can read
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    if (file == nullptr)
        return systemError(errno);
    std::array<char, PCAP_ERRBUF_SIZE> why{};
    CapturePointer capture(
        pcap_fopen_offline_with_tstamp_precision(file, PCAP_TSTAMP_PRECISION_NANO, why.data()));
    if (!capture) {
        std::fclose(file); // NOLINT(cppcoreguidelines-owning-memory): it was not taken over
        return FileError{0, std::string("the capture cannot be read: ") + why.data()};
    }
    if (const int type = pcap_datalink(capture.get()); !PacketReader::knows(type)) {
        const char* const name = pcap_datalink_val_to_name(type);
        return FileError{0, "the capture is of the link type " +
                                (name != nullptr ? std::string(name) : std::to_string(type)) +
                                ", which is not supported"};
    }
    std::error_code fault;
    const auto bytes = static_cast<std::size_t>(std::filesystem::file_size(path, fault));
    return std::unique_ptr<Recording>(std::make_unique<Capture>(std::move(capture), bytes, options));
}

} // namespace zb::rehearsal
