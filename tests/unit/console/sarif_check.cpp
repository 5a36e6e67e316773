#include "unit/console/sarif_check.h"

#include <map>
#include <vector>

namespace zb::test {

namespace {

using Json = nlohmann::json;

struct Property {
    std::string
        kind; ///< "string", "uri", "positive", "index", "level", "columnKind", "bag", an object, "[object]"
    bool isRequired = false;
};
using Object = std::map<std::string, Property>;

/// The objects of the format by name, each with its properties.
const std::map<std::string, Object>& objects() {
    static const std::map<std::string, Object> kObjects{
        {"log", {{"$schema", {"uri"}}, {"version", {"version", true}}, {"runs", {"[run]", true}}}},
        {"run", {{"tool", {"tool", true}}, {"columnKind", {"columnKind"}}, {"results", {"[result]"}}}},
        {"tool", {{"driver", {"component", true}}}},
        {"component", {{"name", {"string", true}}, {"version", {"string"}}, {"rules", {"[rule]"}}}},
        {"rule",
         {{"id", {"string", true}},
          {"shortDescription", {"message"}},
          {"defaultConfiguration", {"configuration"}},
          {"properties", {"bag"}}}},
        {"configuration", {{"level", {"level"}}}},
        {"message", {{"text", {"string", true}}}},
        {"result",
         {{"ruleId", {"string"}},
          {"ruleIndex", {"index"}},
          {"level", {"level"}},
          {"message", {"message", true}},
          {"locations", {"[location]"}}}},
        {"location", {{"physicalLocation", {"physical"}}, {"logicalLocations", {"[logical]"}}}},
        {"physical", {{"artifactLocation", {"artifact"}}, {"region", {"region"}}}},
        {"artifact", {{"uri", {"uri"}}}},
        {"region", {{"startLine", {"positive"}}, {"startColumn", {"positive"}}}},
        {"logical", {{"fullyQualifiedName", {"string"}}}},
    };
    return kObjects;
}

bool isUri(const std::string& text) {
    static const std::string kAllowed =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~:/?#[]@!$&'()*+,;=%";
    return text.find_first_not_of(kAllowed) == std::string::npos;
}

bool isOneOf(const Json& value, const std::vector<std::string>& words) {
    return value.is_string() &&
           std::find(words.begin(), words.end(), value.get<std::string>()) != words.end();
}

std::string fault(const std::string& kind, const Json& value, const std::string& place);

std::string faultOfArray(const std::string& kind, const Json& value, const std::string& place) {
    if (!value.is_array())
        return place + " is no array";
    for (std::size_t at = 0; at < value.size(); ++at)
        if (std::string text = fault(kind, value[at], place + "/" + std::to_string(at)); !text.empty())
            return text;
    return {};
}

std::string faultOfObject(const Object& object, const Json& value, const std::string& place) {
    if (!value.is_object())
        return place + " is no object";
    for (const auto& [name, property] : object)
        if (property.isRequired && !value.contains(name))
            return std::string(place).append(" has no ").append(name);
    for (const auto& [name, member] : value.items()) {
        const auto property = object.find(name);
        if (property == object.end())
            return std::string(place).append(" may not have ").append(name);
        if (std::string text =
                fault(property->second.kind, member, std::string(place).append("/").append(name));
            !text.empty())
            return text;
    }
    return {};
}

std::string fault(const std::string& kind, const Json& value, const std::string& place) {
    if (kind.starts_with('['))
        return faultOfArray(kind.substr(1, kind.size() - 2), value, place);
    if (const auto object = objects().find(kind); object != objects().end())
        return faultOfObject(object->second, value, place);
    const bool isGood = (kind == "string" && value.is_string()) || (kind == "bag" && value.is_object()) ||
                        (kind == "version" && value == "2.1.0") ||
                        (kind == "uri" && value.is_string() && isUri(value.get<std::string>())) ||
                        (kind == "positive" && value.is_number_integer() && value.get<long>() >= 1) ||
                        (kind == "index" && value.is_number_integer() && value.get<long>() >= -1) ||
                        (kind == "level" && isOneOf(value, {"none", "note", "warning", "error"})) ||
                        (kind == "columnKind" && isOneOf(value, {"utf16CodeUnits", "unicodeCodePoints"}));
    return isGood ? std::string() : place + " is no " + kind;
}

} // namespace

std::string sarifFault(const nlohmann::json& log) {
    return fault("log", log, "");
}

} // namespace zb::test
