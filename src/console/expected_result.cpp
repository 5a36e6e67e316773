#include "console/expected_result.h"

#include "platform/ordered_json.h"
#include "platform/text.h"

#include <nlohmann/json.hpp>

namespace zb {

namespace {

constexpr std::size_t kDeepest = 16;

std::string textOf(const nlohmann::ordered_json& object, const std::string& key) {
    const auto found = object.find(key);
    return found == object.end() ? "nothing"
                                 : found->dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

/// The fields that differ, in the order of the new object, then those that only the expected one has.
std::vector<std::string> differingFields(const nlohmann::ordered_json& expected,
                                         const nlohmann::ordered_json& found) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : found.items())
        if (!expected.contains(key) || expected.at(key) != value)
            keys.push_back(key);
    for (const auto& [key, value] : expected.items())
        if (!found.contains(key))
            keys.push_back(key);
    return keys;
}

} // namespace

Result<ExpectedResult> ExpectedResult::open(const std::string& path) {
    Result<rehearsal::LineSource> lines = rehearsal::LineSource::open(path);
    if (!lines)
        return lines.error();
    return ExpectedResult(*std::move(lines));
}

std::optional<std::string> ExpectedResult::nextLine() {
    while (const auto line = lines_.next())
        if (!isBlank(*line))
            return std::string(*line);
    return std::nullopt;
}

std::vector<std::string> ExpectedResult::compare(const std::string& json) {
    const std::string place = "message " + std::to_string(++number_) + ": ";
    const std::optional<std::string> line = nextLine();
    if (!line)
        return {place + "not expected: " + json};
    if (*line == json)
        return {};
    const auto expected = readOrderedJson(*line, kDeepest);
    const auto found = readOrderedJson(json, kDeepest);
    if (!expected || !expected->is_object() || !found)
        return {place + "line " + std::to_string(lines_.lineNumber()) +
                " of the expected result is no JSON object"};
    std::vector<std::string> differences;
    for (const std::string& key : differingFields(*expected, *found))
        differences.push_back(place + key + ": expected " + textOf(*expected, key) + ", found " +
                              textOf(*found, key));
    return differences;
}

std::vector<std::string> ExpectedResult::finish() {
    std::size_t missing = 0;
    while (nextLine())
        ++missing;
    if (lines_.isBroken())
        return {"the expected result cannot be read on from its line " + std::to_string(lines_.lineNumber())};
    if (missing == 0)
        return {};
    return {"after message " + std::to_string(number_) + ": " + std::to_string(missing) +
            " more expected, none found"};
}

} // namespace zb
