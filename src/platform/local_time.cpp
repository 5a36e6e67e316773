#include "platform/local_time.h"

#include <chrono>
#include <ctime>

namespace zb {

std::string localTime(std::filesystem::file_time_type time) {
    const auto system = std::chrono::file_clock::to_sys(time);
    const std::time_t seconds = std::chrono::system_clock::to_time_t(
        std::chrono::time_point_cast<std::chrono::system_clock::duration>(system));
    std::tm local{};
    localtime_r(&seconds, &local);
    std::string text(sizeof "2000-01-01 00:00", '\0');
    text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local));
    return text;
}

} // namespace zb
