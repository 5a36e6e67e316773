#include "console/verdict_text.h"

#include "model/tr_message_record.h"
#include "platform/printable.h"
#include "platform/text.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace zb {

namespace {

using rehearsal::Verdict;

/// Most texts need no escapes; a JSON library takes much longer for them.
void appendJson(std::string& json, std::string_view text) {
    const bool isPlain = std::all_of(text.begin(), text.end(),
                                     [](char c) { return c >= ' ' && c < '\x7F' && c != '"' && c != '\\'; });
    if (isPlain)
        json.append(1, '"').append(text).append(1, '"');
    else
        json += printableJson(
            nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

void appendJsonOrNull(std::string& json, std::string_view text, bool isPresent) {
    if (isPresent)
        appendJson(json, text);
    else
        json += "null";
}

/// A number of a TR item, in the form that JSON has for it.
void appendNumber(std::string& json, const std::string& text) {
    const bool isJson = nlohmann::json::accept(text);
    json += isJson ? text : nlohmann::json(std::strtod(trim(text).c_str(), nullptr)).dump();
}

void appendItems(std::string& json, const Verdict& verdict) {
    const char* separator = "";
    for (const rehearsal::TRItemValue& item : verdict.interpretation.items) {
        json += separator;
        appendJson(json, item.name);
        json += ':';
        if (item.isNumber)
            appendNumber(json, item.text);
        else
            appendJsonOrNull(json, item.text, item.isPresent);
        separator = ",";
    }
}

void appendFindings(std::string& json, const Verdict& verdict) {
    const char* separator = "";
    for (const rehearsal::RehearsalFinding& finding : verdict.findings) {
        json.append(separator).append("{\"id\":\"").append(finding.id).append("\",\"text\":");
        appendJson(json, finding.text);
        json += '}';
        separator = ",";
    }
}

std::string itemsText(const Verdict& verdict) {
    std::string text;
    for (const rehearsal::TRItemValue& item : verdict.interpretation.items)
        text.append(text.empty() ? "" : " ")
            .append(item.name)
            .append("=")
            .append(item.isPresent ? item.text : "?");
    return text;
}

/// A column of a table whose other rows are not known yet.
void appendColumn(std::string& line, std::string_view text, std::size_t width) {
    const std::string shown = printable(text);
    line += shown;
    line.append(std::max(width, codePointCount(shown)) - codePointCount(shown) + 2, ' ');
}

} // namespace

std::string verdictJson(const Verdict& verdict) {
    const rehearsal::RecordedMessage& message = verdict.message;
    const rehearsal::Interpretation& result = verdict.interpretation;
    std::string json = "{\"time\":";
    appendJsonOrNull(json, message.time ? message.time->text() : "", message.time.has_value());
    json += ",\"direction\":";
    appendJsonOrNull(json, arrowOf(message.direction), message.direction != rehearsal::Direction::Unknown);
    json.append(",\"stream\":").append(std::to_string(message.header.stream));
    json.append(",\"function\":").append(std::to_string(message.header.function));
    json.append(",\"wait\":").append(message.header.wait ? "true" : "false");
    json.append(",\"system\":").append(message.hasSystem ? std::to_string(message.header.system) : "null");
    if (message.header.isControl()) {
        json += ",\"control\":";
        appendJson(json, message.label());
    }
    json += ",\"message\":";
    appendJsonOrNull(json, result.definition ? result.definition->getName() : "",
                     result.definition != nullptr);
    json += ",\"transaction\":";
    appendJsonOrNull(json, result.transaction ? result.transaction->Name() : "",
                     result.transaction != nullptr);
    json += ",\"items\":{";
    appendItems(json, verdict);
    json += "},\"sequence\":";
    if (verdict.sequence) {
        json += "{\"name\":";
        appendJson(json, verdict.sequence->name);
        json.append(",\"step\":").append(std::to_string(verdict.sequence->step)).append("}");
    } else {
        json += "null";
    }
    json += ",\"findings\":[";
    appendFindings(json, verdict);
    return json += "]}";
}

std::string verdictLines(const Verdict& verdict) {
    const rehearsal::RecordedMessage& message = verdict.message;
    const rehearsal::Interpretation& result = verdict.interpretation;
    std::string line;
    appendColumn(line, message.time ? message.time->text() : "-", 24);
    appendColumn(line, std::string(arrowOf(message.direction)), 4);
    appendColumn(line, message.label() + (message.header.wait ? " W" : ""), 8);
    appendColumn(line, result.definition ? result.definition->getName() : "-", 24);
    appendColumn(line, result.transaction ? result.transaction->Name() : "-", 18);
    appendColumn(line,
                 verdict.sequence ? verdict.sequence->name + " " + std::to_string(verdict.sequence->step) +
                                        "/" + std::to_string(verdict.sequence->steps)
                                  : "-",
                 14);
    line += printable(itemsText(verdict));
    line = trimRight(line) + "\n";
    for (const rehearsal::RehearsalFinding& finding : verdict.findings)
        line.append("    ! ").append(finding.id).append(": ").append(printable(finding.text)).append("\n");
    return line;
}

} // namespace zb
