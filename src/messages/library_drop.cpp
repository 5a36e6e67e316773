#include "messages/library_drop.h"

#include "platform/number.h"

namespace zb {

std::vector<DropStep> planDrop(const std::vector<std::string>& entries) {
    constexpr long long kHighestFunction = 99999;
    static const std::string kNone;
    std::vector<DropStep> steps;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string& before = i == 0 ? kNone : entries[i - 1];
        const std::string& entry = entries[i];
        const std::string& after = i + 1 == entries.size() ? kNone : entries[i + 1];
        if (entry == after)
            continue;
        const std::size_t afterLetter = entry.find('F') + 1;
        const std::string stem = entry.substr(0, afterLetter);
        const long long function =
            toInteger(valueOf(entry.substr(afterLetter)), 0, kHighestFunction).value_or(0);
        steps.push_back({entry, entry != before});
        if (const std::string reply = stem + std::to_string(function + 1);
            function % 2 != 0 && reply != after)
            steps.push_back({reply, false});
    }
    return steps;
}

} // namespace zb
