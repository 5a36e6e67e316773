#include "messages/sml/reader.h"

#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <unordered_map>

namespace zb::sml {

namespace {

class Names {
public:
    // The name, or the name with a number behind it.
    std::string take(const std::string& wanted) {
        const auto [known, fresh] = lastNumber_.try_emplace(key(wanted), 1);
        if (fresh)
            return wanted;
        std::size_t& number = known->second;
        for (;;) {
            std::string candidate = wanted + "_" + std::to_string(++number);
            if (lastNumber_.try_emplace(key(candidate), 1).second)
                return candidate;
        }
    }

private:
    static std::string key(const std::string& name) {
        if (!isAscii(name))
            return upper(name);
        std::string capitals = name;
        for (char& c : capitals)
            c = upperLetter(c);
        return capitals;
    }

    std::unordered_map<std::string, std::size_t> lastNumber_;
};

// A name is one word without the marks that part it from what stands around it in definitions and lists.
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

// A description is one line, and has no colon, which would make a message of it.
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

void describe(ReadMessage& read, FindingCollector& findings) {
    std::string& description = read.message.description;
    if (isAllowedDescription(description))
        return;
    std::string allowed = allowedDescription(description);
    if (allowed.find('-') != std::string::npos && contains(description, ":"))
        findings.note(read.offset, "a description holds no colon; a dash stands in its place");
    description = std::move(allowed);
}

} // namespace

void nameMessages(std::vector<ReadMessage>& messages, FindingCollector& findings) {
    Names names;
    for (ReadMessage& read : messages) {
        if (read.writtenName.empty())
            continue;
        const std::string allowed = allowedName(read.writtenName);
        read.message.name = names.take(allowed);
        if (read.message.name != allowed)
            findings.warn(read.offset,
                          "a second message is named " + allowed + "; it became " + read.message.name);
        else if (allowed != read.writtenName)
            findings.note(read.offset, "the name " + read.writtenName + " became " + allowed);
        if (allowed != read.writtenName && read.message.description.empty())
            read.message.description = read.writtenName;
    }
    for (ReadMessage& read : messages) {
        if (read.writtenName.empty())
            read.message.name = names.take("S" + std::to_string(read.message.stream) + "F" +
                                           std::to_string(read.message.function));
        describe(read, findings);
    }
}

} // namespace zb::sml
