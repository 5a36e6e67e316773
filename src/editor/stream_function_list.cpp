#include "editor/stream_function_list.h"

#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <utility>

namespace zb {

namespace {

/// Reads such a list from its beginning to its end.
class ListReader {
public:
    explicit ListReader(std::string_view text) : rest_(text) {}

    /// False when the text is not a list.
    bool read() {
        while (!rest_.empty()) {
            if (!readToken())
                return false;
        }
        return !streamOnly_ && !range_ && !names_.empty();
    }
    std::vector<std::string> takeNames() { return std::move(names_); }

private:
    bool readToken() {
        constexpr std::array<std::string_view, 2> kDashes{"-", "\xE2\x80\x93"};
        for (const std::string_view dash : kDashes) {
            if (take(dash))
                return beginRange();
        }
        if (take("/")) {
            joined_ = true;
            return function_ >= 0;
        }
        if (takeSpace())
            return true;
        if (takeLetter('S'))
            return readStream();
        if (takeLetter('F'))
            return readFunction();
        // A number alone goes on with the stream before it: "S2F33/34".
        return (range_ || joined_) && readFunction();
    }

    bool take(std::string_view token) {
        const bool found = rest_.starts_with(token);
        if (found)
            rest_.remove_prefix(token.size());
        return found;
    }

    bool takeLetter(char letter) {
        const bool found =
            !rest_.empty() && std::toupper(static_cast<unsigned char>(rest_.front())) == letter;
        if (found)
            rest_.remove_prefix(1);
        return found;
    }

    bool takeSpace() {
        constexpr std::string_view kBetween = " \t\r\n,;";
        const std::size_t end = std::min(rest_.find_first_not_of(kBetween), rest_.size());
        rest_.remove_prefix(end);
        return end > 0;
    }

    /// A number of one to three digits; -1 for anything else.
    int takeNumber() {
        constexpr std::size_t kMostDigits = 3;
        const std::size_t end = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
        if (end == 0 || end > kMostDigits)
            return -1;
        int number = 0;
        for (const char digit : rest_.substr(0, end))
            number = number * 10 + (digit - '0');
        rest_.remove_prefix(end);
        return number;
    }

    bool beginRange() {
        if (function_ < 0 || range_ || streamOnly_)
            return false;
        range_ = true;
        rangeStream_ = stream_;
        return true;
    }

    bool readStream() {
        if (streamOnly_)
            return false;
        stream_ = takeNumber();
        streamOnly_ = true;
        return stream_ >= 0;
    }

    bool readFunction() {
        const int first = range_ ? function_ + 1 : -1;
        function_ = takeNumber();
        if (stream_ < 0 || function_ < 0)
            return false;
        if (range_ && (stream_ != rangeStream_ || function_ < first))
            return false;
        for (int each = range_ ? first : function_; each <= function_; ++each)
            names_.push_back("S" + std::to_string(stream_) + "F" + std::to_string(each));
        takeLetter('W');
        range_ = joined_ = streamOnly_ = false;
        return rest_.empty() || std::isalnum(static_cast<unsigned char>(rest_.front())) == 0;
    }

    std::string_view rest_;
    std::vector<std::string> names_;
    int stream_ = -1;
    int function_ = -1;
    int rangeStream_ = -1;
    bool streamOnly_ = false; // its function must follow
    bool range_ = false;      // its end must follow
    bool joined_ = false;     // "/" came last
};

} // namespace

std::optional<std::vector<std::string>> streamFunctionList(std::string_view text) {
    ListReader reader(text);
    return reader.read() ? std::optional(reader.takeNames()) : std::nullopt;
}

} // namespace zb
