#include "bench/long_recording.h"

#include "support/capture_writer.h"
#include "support/etcher_days.h"

#include <fstream>

namespace zb::bench {

LongRecording::LongRecording(std::size_t messages, const std::string& ending)
    : path_(folder_ / ("long" + ending)) {
    std::ofstream file(path_, std::ios::binary);
    const auto day = test::regularDay();
    const auto part = [&](std::size_t count) {
        return std::vector<test::DayMessage>(day.end() - static_cast<std::ptrdiff_t>(count), day.end());
    };
    constexpr std::size_t kPart = 8; // events and alarms with their replies
    std::uint32_t system = 0;
    test::CaptureWriter capture;
    auto link = capture.open(49152, 5000);
    for (; messages_ < messages; messages_ += kPart) {
        auto exchange = part(kPart);
        for (std::size_t i = 0; i < exchange.size(); ++i)
            exchange[i].header.system = system + static_cast<std::uint32_t>(i / 2);
        system += kPart / 2;
        if (ending == ".log") {
            file << test::smlLog(exchange);
            continue;
        }
        for (const auto& message : exchange)
            capture.send(link, message.toHost ? 1 : 0, test::frameOf(message));
        if (capture.bytes().size() > (std::size_t{1} << 20U)) {
            file << capture.bytes();
            capture.forget();
        }
    }
    if (ending != ".log")
        file << capture.bytes();
    file.close();
    bytes_ = std::filesystem::file_size(path_);
}

} // namespace zb::bench
