#include "controls/screen.h"

#include <ctime>

namespace zb {

std::string Screen::timeOfDay() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    localtime_r(&now, &local);
    std::string text(5, ' ');
    // The terminating zero has its place after the five characters.
    text.resize(std::strftime(text.data(), text.size() + 1, "%H:%M", &local));
    return text;
}

} // namespace zb
