#include "messages/sml/reader.h"
#include "messages/sml/unique_names.h"

#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>

namespace zb::sml {

namespace {

// The names of messages, whatever the case of their letters, also of those beyond ASCII.
class Names {
public:
    // Of the name, or of the name with the number that must follow it, what follows; empty for a free name.
    // Valid until the next call.
    std::string_view take(std::string_view name) {
        if (isAscii(name))
            return names_.take(name).substr(name.size());
        const std::string capitals = upper(name);
        return names_.take(capitals).substr(capitals.size());
    }

private:
    UniqueNames names_{"_"};
};

std::string_view joined(std::pmr::memory_resource& texts, std::string_view name, std::string_view number) {
    return keepText(texts, std::string(name).append(number));
}

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

/// What is needed to give the messages of a library their names.
struct Naming {
    std::pmr::memory_resource& texts;
    FindingCollector& findings;
    Names names;
};

void describe(SmlMessage& message, std::size_t offset, Naming& naming) {
    if (isAllowedDescription(message.description))
        return;
    const std::string allowed = allowedDescription(message.description);
    if (allowed.find('-') != std::string::npos && contains(message.description, ":"))
        naming.findings.note(offset, "a description cannot contain a colon; it was replaced by a dash");
    message.description = keepText(naming.texts, allowed);
}

void nameAsWritten(SmlMessage& message, std::size_t offset, Naming& naming) {
    const std::string_view written = message.name;
    const bool isAllowed = isAllowedName(written);
    if (!isAllowed)
        message.name = keepText(naming.texts, allowedName(written));
    const std::string_view wanted = message.name;
    const std::string_view number = naming.names.take(wanted);
    if (!number.empty()) {
        message.name = joined(naming.texts, wanted, number);
        naming.findings.warn(offset, "a second message is named " + std::string(wanted) + "; it became " +
                                         std::string(message.name));
    } else if (!isAllowed) {
        naming.findings.note(offset,
                             "the name " + std::string(written) + " became " + std::string(message.name));
    }
    if (!isAllowed && message.description.empty())
        message.description = written;
}

void nameByNumbers(SmlMessage& message, Naming& naming) {
    const std::string wanted = "S" + std::to_string(message.stream) + "F" + std::to_string(message.function);
    message.name = joined(naming.texts, wanted, naming.names.take(wanted));
}

} // namespace

std::string_view keepText(std::pmr::memory_resource& texts, std::string_view text) {
    if (text.empty())
        return {};
    auto* const kept = static_cast<char*>(texts.allocate(text.size(), 1));
    return {kept, text.copy(kept, text.size())};
}

void nameMessages(std::vector<SmlMessage>& messages, const std::vector<std::size_t>& offsets,
                  std::pmr::memory_resource& texts, FindingCollector& findings) {
    Naming naming{texts, findings, Names()};
    std::vector<std::size_t> nameless;
    for (std::size_t i = 0; i < messages.size(); ++i) {
        if (messages[i].name.empty())
            nameless.push_back(i);
        else
            nameAsWritten(messages[i], offsets[i], naming);
    }
    for (const std::size_t i : nameless)
        nameByNumbers(messages[i], naming);
    for (std::size_t i = 0; i < messages.size(); ++i)
        describe(messages[i], offsets[i], naming);
}

} // namespace zb::sml
