#include "console/findings.h"

#include "console/printable.h"
#include "lint/rule.h"
#include "platform/version.h"

#include <nlohmann/json.hpp>
#include <ostream>

namespace zb {

namespace {

using Json = nlohmann::ordered_json;

std::string_view levelOf(Severity severity) {
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        break;
    }
    return "note";
}

/// A path as a reference of a URI: every character that has a meaning there is escaped.
std::string uriOf(const std::string& path) {
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string uri(path.starts_with('/') ? "file://" : "");
    for (const char c : path) {
        if (kPlain.find(c) != std::string_view::npos) {
            uri += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        uri.append(1, '%').append(1, kDigits[byte / 16U]).append(1, kDigits[byte % 16U]);
    }
    return uri;
}

Json ruleOf(const Rule& rule) {
    return {{"id", rule.id},
            {"shortDescription", {{"text", rule.title}}},
            {"defaultConfiguration", {{"level", levelOf(rule.severity)}}},
            {"properties", {{"category", categoryName(rule.category)}}}};
}

Json locationOf(const std::string& file, const FindingPlace& place) {
    Json physical{{"artifactLocation", {{"uri", uriOf(file)}}}};
    if (place.line > 0)
        physical["region"] = {{"startLine", place.line},
                              {"startColumn", std::max<std::size_t>(place.column, 1)}};
    std::string name = place.message;
    if (!place.item.empty())
        name += "/" + place.item;
    Json location{{"physicalLocation", std::move(physical)}};
    if (!name.empty())
        location["logicalLocations"] = Json::array({{{"fullyQualifiedName", name}}});
    return location;
}

Json resultOf(const std::string& file, const Finding& finding) {
    Json result = Json::object();
    const auto rules = allRules();
    for (std::size_t at = 0; at < rules.size(); ++at) {
        if (rules[at].id == finding.id)
            result = {{"ruleId", finding.id}, {"ruleIndex", at}};
    }
    result["level"] = levelOf(finding.severity);
    result["message"] = {{"text", finding.text}};
    result["locations"] = Json::array({locationOf(file, finding.place)});
    return result;
}

void print(std::ostream& stream, const Json& json) {
    stream << printableJson(json.dump(-1, ' ', false, Json::error_handler_t::replace)) << '\n';
}

} // namespace

void printFindingsInDetail(std::ostream& stream, const std::string& file, const Findings& findings) {
    for (const Finding& finding : findings) {
        const Rule* rule = findRule(finding.id);
        print(stream, {{"file", file},
                       {"line", finding.place.line},
                       {"column", finding.place.column},
                       {"message", finding.place.message},
                       {"item", finding.place.item},
                       {"id", finding.id},
                       {"category", rule == nullptr ? "" : categoryName(rule->category)},
                       {"severity", levelOf(finding.severity)},
                       {"text", finding.text}});
    }
}

void printFindingsAsSarif(std::ostream& stream, const std::string& file, const Findings& findings) {
    Json rules = Json::array();
    for (const Rule& rule : allRules())
        rules.push_back(ruleOf(rule));
    Json results = Json::array();
    for (const Finding& finding : findings)
        results.push_back(resultOf(file, finding));
    const Json driver{{"name", "zbc"}, {"version", kVersion}, {"rules", std::move(rules)}};
    const Json run{
        {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", std::move(results)}};
    print(stream, {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                   {"version", "2.1.0"},
                   {"runs", Json::array({run})}});
}

} // namespace zb
