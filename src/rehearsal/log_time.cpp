#include "rehearsal/log_time.h"

#include "messages/sml/characters.h"

#include <chrono>

namespace zb::rehearsal {

namespace {

using sml::isDigit;

/// Reads the parts of a time from one position on.
class TimeReader {
public:
    TimeReader(std::string_view line, std::size_t at) : line_(line), at_(at) {}

    std::optional<FoundTime> read() {
        const std::size_t begin = at_;
        const bool hasDate = readDate();
        if (hasDate && !passDateEnd())
            return std::nullopt;
        if (!hasDate)
            at_ = begin;
        if (!readClock(hasDate))
            return std::nullopt;
        FoundTime found;
        found.time.hasDate = hasDate;
        found.time.nanoseconds = nanoseconds(hasDate);
        found.begin = begin;
        found.end = at_;
        return found;
    }

private:
    char peek(std::size_t ahead = 0) const { return at_ + ahead < line_.size() ? line_[at_ + ahead] : '\0'; }

    std::size_t digitsHere() const {
        std::size_t count = 0;
        while (isDigit(peek(count)))
            ++count;
        return count;
    }
    int take(std::size_t count) {
        int number = 0;
        for (; count > 0; --count)
            number = number * 10 + (line_[at_++] - '0');
        return number;
    }
    bool takeTwo(int& number) {
        if (digitsHere() < 2)
            return false;
        number = take(2);
        return true;
    }

    bool readDate() {
        const std::size_t count = digitsHere();
        if (count == 8)
            return readPackedDate();
        if (count == 4)
            return readYearFirst();
        return count > 0 && count <= 2 && readYearLast(count);
    }
    bool readPackedDate() {
        year_ = take(4);
        month_ = take(2);
        day_ = take(2);
        packed_ = true;
        return isDate();
    }
    bool readYearFirst() {
        year_ = take(4);
        const char separator = peek();
        if (separator != '-' && separator != '/' && separator != '.')
            return false;
        ++at_;
        if (!takeTwo(month_) || peek() != separator)
            return false;
        ++at_;
        return takeTwo(day_) && isDate();
    }
    /// "15.12.2022" and "12/15/2022".
    bool readYearLast(std::size_t count) {
        day_ = take(count);
        const char separator = peek();
        if (separator != '.' && separator != '/')
            return false;
        ++at_;
        const std::size_t second = digitsHere();
        if (second == 0 || second > 2)
            return false;
        month_ = take(second);
        if (peek() != separator)
            return false;
        ++at_;
        if (digitsHere() != 4)
            return false;
        year_ = take(4);
        if (separator == '/' && day_ <= 12)
            std::swap(day_, month_);
        return isDate();
    }
    bool isDate() const {
        using namespace std::chrono;
        return year_ >= 1970 && year_ < 2200 &&
               year_month_day(year(year_), month(static_cast<unsigned>(month_)),
                              std::chrono::day(static_cast<unsigned>(day_)))
                   .ok();
    }
    bool passDateEnd() {
        if (peek() != ' ' && peek() != 'T' && peek() != '_' && peek() != '-' && peek() != '\t')
            return false;
        ++at_;
        return true;
    }

    bool readClock(bool hasDate) {
        if (hasDate && packed_ && digitsHere() >= 6) {
            takeTwo(hour_);
            takeTwo(minute_);
            takeTwo(second_);
        } else {
            const std::size_t count = digitsHere();
            if (count == 0 || count > 2)
                return false;
            hour_ = take(count);
            if (peek() != ':')
                return false;
            ++at_;
            if (!takeTwo(minute_) || peek() != ':')
                return false;
            ++at_;
            if (!takeTwo(second_))
                return false;
        }
        readFraction();
        return hour_ < 24 && minute_ < 60 && second_ < 61;
    }
    void readFraction() {
        if ((peek() != '.' && peek() != ',' && peek() != ':') || !isDigit(peek(1)))
            return;
        ++at_;
        std::int64_t unit = 1'000'000'000;
        for (; isDigit(peek()); ++at_)
            if (unit > 1) {
                unit /= 10;
                fraction_ += (peek() - '0') * unit;
            }
    }

    std::int64_t nanoseconds(bool hasDate) const {
        using namespace std::chrono;
        std::int64_t seconds = hour_ * 3600 + minute_ * 60 + second_;
        if (hasDate)
            seconds += sys_days(year(year_) / month_ / day_).time_since_epoch().count() * std::int64_t{86400};
        return seconds * 1'000'000'000 + fraction_;
    }

    std::string_view line_;
    std::size_t at_;
    int year_ = 0, month_ = 0, day_ = 0, hour_ = 0, minute_ = 0, second_ = 0;
    std::int64_t fraction_ = 0;
    bool packed_ = false;
};

} // namespace

std::optional<FoundTime> findTime(std::string_view line) {
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (!isDigit(line[at]))
            continue;
        if (const std::optional<FoundTime> found = TimeReader(line, at).read())
            return found;
        while (at + 1 < line.size() && isDigit(line[at + 1]))
            ++at;
    }
    return std::nullopt;
}

} // namespace zb::rehearsal
