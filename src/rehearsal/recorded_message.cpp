#include "rehearsal/recorded_message.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace zb::rehearsal {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::size_t kLeastDigits = 3;

std::string fractionText(std::int64_t nanoseconds) {
    std::string digits = std::to_string(nanoseconds + kSecond).substr(1);
    while (digits.size() > kLeastDigits && digits.back() == '0')
        digits.pop_back();
    return digits;
}

} // namespace

std::string_view arrowOf(Direction direction) {
    switch (direction) {
    case Direction::ToEquip:
        return "H->E";
    case Direction::ToHost:
        return "H<-E";
    default:
        return "-";
    }
}

std::string RecordedTime::text() const {
    using namespace std::chrono;
    const sys_time<std::chrono::nanoseconds> moment{std::chrono::nanoseconds(nanoseconds)};
    const auto day = floor<days>(moment);
    const hh_mm_ss<std::chrono::nanoseconds> clock{moment - day};
    const year_month_day date{day};
    std::array<char, 64> buffer;
    std::string text;
    if (hasDate) {
        std::snprintf(buffer.data(), buffer.size(), "%04d-%02u-%02uT", static_cast<int>(date.year()),
                      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
        text = buffer.data();
    }
    std::snprintf(buffer.data(), buffer.size(), "%02d:%02d:%02d.", static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
    return text + buffer.data() + fractionText(clock.subseconds().count()) + (isUtc ? "Z" : "");
}

std::string RecordedMessage::label() const {
    if (header.isControl()) {
        const std::string_view name = secs2::controlName(header.sType);
        return name.empty() ? "SType " + std::to_string(header.sType) : std::string(name);
    }
    return "S" + std::to_string(header.stream) + "F" + std::to_string(header.function);
}

} // namespace zb::rehearsal
