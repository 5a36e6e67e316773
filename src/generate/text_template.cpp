#include "generate/text_template.h"

#include "platform/text.h"

namespace zb::generate {

namespace {

constexpr std::string_view kInstruction = "//% ";
constexpr std::string_view kEach = "each ";
constexpr std::string_view kIf = "if ";
constexpr std::string_view kElse = "else";
constexpr std::string_view kEnd = "end";
constexpr std::string_view kMore = "more";

/// The words of an instruction; empty for another line.
std::string_view instruction(std::string_view line) {
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string_view::npos || !line.substr(start).starts_with(kInstruction))
        return {};
    return trimmed(before(line.substr(start + kInstruction.size()), "\n"));
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::size_t length = end == std::string_view::npos ? text.size() : end + 1;
        lines.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

const std::string* findText(std::string_view name, const std::vector<const TemplateData*>& scopes) {
    for (auto scope = scopes.rbegin(); scope != scopes.rend(); ++scope) {
        if (const std::string* text = (*scope)->text(name))
            return text;
    }
    return nullptr;
}

const std::deque<TemplateData>* findList(std::string_view name,
                                         const std::vector<const TemplateData*>& scopes) {
    for (auto scope = scopes.rbegin(); scope != scopes.rend(); ++scope) {
        if (const auto* list = (*scope)->list(name))
            return list;
    }
    return nullptr;
}

TemplateFault unknownName(const std::string& name) {
    return TemplateFault("a template asks for \"" + name + "\", which there is not");
}

} // namespace

TextTemplate::TextTemplate(std::string_view text) {
    std::size_t at = 0;
    parts_ = parse(linesOf(text), at, false);
}

std::vector<TextTemplate::Part> TextTemplate::parse(const std::vector<std::string_view>& lines,
                                                    std::size_t& at, bool isNested) {
    std::vector<Part> parts;
    for (; at < lines.size(); ++at) {
        const std::string_view words = instruction(lines[at]);
        if (words.empty()) {
            parseLine(lines[at], parts);
        } else if (words == kElse || words == kEnd) {
            if (!isNested)
                throw TemplateFault("a template ends a block that it did not begin");
            return parts;
        } else {
            parseBlock(lines, at, parts.emplace_back());
        }
    }
    if (isNested)
        throw TemplateFault("a template does not end a block");
    return parts;
}

void TextTemplate::parseBlock(const std::vector<std::string_view>& lines, std::size_t& at, Part& part) {
    const std::string_view words = instruction(lines[at]);
    if (words.starts_with(kEach))
        part.kind = Part::Kind::Each;
    else if (words.starts_with(kIf))
        part.kind = Part::Kind::If;
    else
        throw TemplateFault("a template has an unknown instruction: " + std::string(words));
    part.text = trim(words.substr(words.find(' ')));
    part.parts = parse(lines, ++at, true);
    if (instruction(lines[at]) == kElse)
        part.otherwise = parse(lines, ++at, true);
}

void TextTemplate::parseLine(std::string_view line, std::vector<Part>& parts) {
    while (!line.empty()) {
        const std::size_t opening = line.find("${");
        const std::size_t closing = opening == std::string_view::npos ? opening : line.find('}', opening);
        const bool hasField = closing != std::string_view::npos;
        const std::string_view text = hasField ? line.substr(0, opening) : line;
        if (!parts.empty() && parts.back().kind == Part::Kind::Text)
            parts.back().text += text;
        else if (!text.empty())
            parts.push_back({Part::Kind::Text, std::string(text), {}, {}});
        if (!hasField)
            return;
        parts.push_back(
            {Part::Kind::Field, std::string(line.substr(opening + 2, closing - opening - 2)), {}, {}});
        line.remove_prefix(closing + 1);
    }
}

void TextTemplate::append(std::string& to, const TemplateData& data) const {
    Scopes scopes{&data};
    append(to, parts_, scopes);
}

void TextTemplate::append(std::string& to, const std::vector<Part>& parts, Scopes& scopes) {
    for (const Part& part : parts) {
        switch (part.kind) {
        case Part::Kind::Text:
            to += part.text;
            break;
        case Part::Kind::Field: {
            const std::string* text = findText(part.text, scopes);
            if (text == nullptr)
                throw unknownName(part.text);
            to += *text;
            break;
        }
        case Part::Kind::Each:
            appendEach(to, part, scopes);
            break;
        case Part::Kind::If:
            append(to, isTrue(part.text, scopes) ? part.parts : part.otherwise, scopes);
            break;
        }
    }
}

void TextTemplate::appendEach(std::string& to, const Part& part, Scopes& scopes) {
    const auto* list = findList(part.text, scopes);
    if (list == nullptr)
        throw unknownName(part.text);
    TemplateData place;
    place.set(kMore, "true");
    TemplateData lastPlace;
    lastPlace.set(kMore, "");
    for (const TemplateData& element : *list) {
        scopes.push_back(&element == &list->back() ? &lastPlace : &place);
        scopes.push_back(&element);
        append(to, part.parts, scopes);
        scopes.resize(scopes.size() - 2);
    }
}

bool TextTemplate::isTrue(const std::string& name, const Scopes& scopes) {
    if (const std::string* text = findText(name, scopes))
        return !text->empty();
    const auto* list = findList(name, scopes);
    if (list == nullptr)
        throw unknownName(name);
    return !list->empty();
}

} // namespace zb::generate
