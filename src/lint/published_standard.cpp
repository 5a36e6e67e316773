#include "lint/published_standard.h"

#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <array>

namespace zb {

namespace {

constexpr int kFirstOwnStream = 64;
constexpr int kFirstOwnFunction = 64;

/// Functions of a stream that newer editions have assigned; no layout comes with the program.
struct AssignedRange {
    int stream;
    int first;
    int last;
};
constexpr std::array kAssigned{
    AssignedRange{1, 21, 24},  AssignedRange{2, 65, 68},  AssignedRange{3, 15, 36},  AssignedRange{7, 37, 44},
    AssignedRange{14, 19, 28}, AssignedRange{15, 49, 54}, AssignedRange{16, 11, 30}, AssignedRange{18, 1, 16},
    AssignedRange{19, 1, 20},  AssignedRange{20, 1, 36},  AssignedRange{21, 1, 20}};

bool isWithin(const std::string_view range, double value) {
    // A sign in front belongs to the first number.
    const std::size_t dash = range.find('-', 1);
    const double first = valueOf(range.substr(0, dash));
    const double last = dash == std::string_view::npos ? first : valueOf(range.substr(dash + 1));
    return value >= first && value <= last;
}

} // namespace

PublishedStandard::PublishedStandard() : items_(publishedItems()) {
    for (PublishedLayout& layout : publishedLayouts()) {
        Message message;
        for (const std::string_view form : layout.forms)
            if (auto parsed = LayoutForm::parse(form))
                message.forms.push_back(std::move(*parsed));
        const std::pair key(layout.stream, layout.function);
        message.layout = std::move(layout);
        messages_.emplace(key, std::move(message));
    }
}

const PublishedStandard::Message* PublishedStandard::message(int stream, int function) const {
    const auto found = messages_.find({stream, function});
    return found == messages_.end() ? nullptr : &found->second;
}

const PublishedItem* PublishedStandard::item(std::string_view name) const {
    const auto found = items_.find(name);
    return found == items_.end() ? nullptr : &found->second;
}

std::string_view PublishedStandard::itemOf(std::string_view name) const {
    const std::string upperName = upper(name);
    auto found = items_.find(upperName);
    if (found == items_.end())
        found = items_.find(upperName.substr(0, upperName.find_last_not_of("0123456789_") + 1));
    return found == items_.end() ? std::string_view() : found->first;
}

bool isOwnMessage(int stream, int function) {
    return stream >= kFirstOwnStream || function >= kFirstOwnFunction;
}

bool isAssigned(int stream, int function) {
    if (function == 0)
        return true;
    return std::any_of(kAssigned.begin(), kAssigned.end(), [&](const AssignedRange& range) {
        return range.stream == stream && function >= range.first && function <= range.last;
    });
}

bool isKnownCode(const PublishedItem& item, std::string_view value) {
    const std::string_view text = trimmed(value);
    return item.codes.empty() || text.empty() ||
           std::any_of(item.codes.begin(), item.codes.end(), [&](std::string_view code) {
               const std::string_view word = before(code, " ");
               return isNumeric(text) ? isWithin(word, valueOf(text)) : equalsIgnoringCase(word, text);
           });
}

bool mayHaveFormat(const PublishedItem& item, std::string_view format) {
    return std::any_of(item.formats.begin(), item.formats.end(),
                       [&](std::string_view known) { return known == "X" || known == format; });
}

} // namespace zb
