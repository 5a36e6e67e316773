#include "messages/sml/reader.h"
#include "messages/sml/unique_names.h"

#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <utility>

namespace zb::sml {

namespace {

// The names of messages, whatever the case of their letters, also of those beyond ASCII.
class Names {
public:
    // The name, or the name with a number after it.
    void take(std::string& name) {
        if (isAscii(name)) {
            const std::string_view taken = names_.take(name);
            name += taken.substr(name.size());
            return;
        }
        const std::string capitals = upper(name);
        name += names_.take(capitals).substr(capitals.size());
    }

private:
    UniqueNames names_{"_"};
};

bool isAllowedName(std::string_view name) {
    return std::none_of(name.begin(), name.end(),
                        [](char c) {
                            return isSpace(c) || static_cast<unsigned char>(c) < 0x20 || c == ':' ||
                                   c == '\\';
                        }) &&
           name.front() != '#' && name.front() != '*' && !isNumeric(name);
}

// A name is one word without the characters that separate it from its surroundings in definitions and lists.
std::string allowedName(std::string_view name) {
    std::string allowed;
    for (const char c : name) {
        const bool replaced = isSpace(c) || static_cast<unsigned char>(c) < 0x20 || c == ':' || c == '\\' ||
                              (allowed.empty() && (c == '#' || c == '*'));
        if (!replaced)
            allowed += c;
        else if (allowed.empty() || allowed.back() != '_')
            allowed += '_';
    }
    if (isNumeric(allowed))
        allowed.insert(0, 1, '_');
    return allowed;
}

// A description is one line without a colon, since a colon would make it a message.
bool isAllowedDescription(std::string_view description) {
    return std::none_of(description.begin(), description.end(),
                        [](char c) { return c == ':' || static_cast<unsigned char>(c) < 0x20; }) &&
           !description.starts_with(' ') && !description.ends_with(' ');
}

std::string allowedDescription(std::string_view description) {
    std::string allowed;
    for (std::size_t i = 0; i < description.size(); ++i) {
        const char c = description[i];
        if (c == ':')
            allowed += i + 1 < description.size() && description[i + 1] == ' ' ? " -" : "-";
        else
            allowed += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
    return trim(allowed);
}

void describe(SmlMessage& message, std::size_t offset, FindingCollector& findings) {
    std::string& description = message.description;
    if (isAllowedDescription(description))
        return;
    std::string allowed = allowedDescription(description);
    if (allowed.find('-') != std::string::npos && contains(description, ":"))
        findings.note(offset, "a description cannot contain a colon; it was replaced by a dash");
    description = std::move(allowed);
}

void nameAsWritten(SmlMessage& message, std::size_t offset, Names& names, FindingCollector& findings) {
    std::string written;
    if (!isAllowedName(message.name))
        written = std::exchange(message.name, allowedName(message.name));
    const std::size_t length = message.name.size();
    names.take(message.name);
    if (message.name.size() != length)
        findings.warn(offset, "a second message is named " + message.name.substr(0, length) + "; it became " +
                                  message.name);
    else if (!written.empty())
        findings.note(offset, "the name " + written + " became " + message.name);
    if (!written.empty() && message.description.empty())
        message.description = std::move(written);
}

} // namespace

void nameMessages(std::vector<SmlMessage>& messages, const std::vector<std::size_t>& offsets,
                  FindingCollector& findings) {
    Names names;
    std::vector<std::size_t> nameless;
    for (std::size_t i = 0; i < messages.size(); ++i) {
        if (messages[i].name.empty())
            nameless.push_back(i);
        else
            nameAsWritten(messages[i], offsets[i], names, findings);
    }
    for (const std::size_t i : nameless) {
        SmlMessage& message = messages[i];
        message.name = "S" + std::to_string(message.stream) + "F" + std::to_string(message.function);
        names.take(message.name);
    }
    for (std::size_t i = 0; i < messages.size(); ++i)
        describe(messages[i], offsets[i], findings);
}

} // namespace zb::sml
