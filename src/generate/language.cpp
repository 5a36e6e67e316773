#include "generate/language.h"

#include "platform/text.h"

#include <nlohmann/json.hpp>
#include <optional>

namespace zb::generate {

namespace {

constexpr std::string_view kDescription = "language.json";

std::string_view folderOf(const TemplateFile& file) {
    return before(file.path, "/");
}

TypeWords wordsOf(const nlohmann::json& type) {
    const auto word = [&type](const char* name) { return type.value(name, std::string()); };
    return {word("one"),         word("boxed"), word("many"), word("literal"),
            word("manyLiteral"), word("sized"), word("call"), word("callMany")};
}

} // namespace

std::vector<std::string> Language::folders() {
    std::vector<std::string> folders;
    for (const TemplateFile& file : templateFiles()) {
        if (file.path.ends_with(kDescription))
            folders.emplace_back(folderOf(file));
    }
    return folders;
}

Language::Language(std::string_view folder) : folder_(folder) {
    nlohmann::json description;
    for (const TemplateFile& file : templateFiles()) {
        if (file.path == folder_ + "/" + std::string(kDescription))
            description = nlohmann::json::parse(file.text);
    }
    if (description.is_null())
        throw TemplateFault("no templates for \"" + folder_ + "\"");
    title_ = description.at("title");
    upperFields_ = description.at("upperFields");
    signedU8_ = description.at("signedU8");
    octalEscapes_ = description.at("octalEscapes");
    reserved_ = description.at("reserved").get<std::unordered_set<std::string>>();
    words_ = description.at("words").get<std::map<std::string, std::string>>();
    for (const auto& [format, type] : description.at("types").items())
        types_[format] = wordsOf(type);
    for (const TemplateFile& file : templateFiles()) {
        if (folderOf(file) != folder_ || file.path.ends_with(kDescription))
            continue;
        const std::string path(file.path.substr(folder_.size() + 1));
        const auto each = description.at("each").find(path);
        const bool isList = each != description.at("each").end();
        outputs_.push_back({TextTemplate(file.text), isList ? each->at(0).get<std::string>() : std::string(),
                            TextTemplate(isList ? each->at(1).get<std::string>() : path)});
    }
}

std::string Language::textLiteral(std::string_view bytes) const {
    constexpr std::string_view kHex = "0123456789abcdef";
    std::string literal = "\"";
    for (const char character : bytes) {
        const auto code = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\')
            literal.append(1, '\\').append(1, character);
        else if (code >= 0x20 && code < 0x7F)
            literal += character;
        else if (octalEscapes_)
            literal.append({'\\', static_cast<char>('0' + (code >> 6U)),
                            static_cast<char>('0' + (code >> 3U & 7U)),
                            static_cast<char>('0' + (code & 7U))});
        else
            literal.append("\\u00").append({kHex[code >> 4U], kHex[code & 15U]});
    }
    return literal + "\"";
}

std::string filled(std::string_view pattern, std::string_view text) {
    return replaceAll(pattern, "{}", text);
}

} // namespace zb::generate
