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
    return {word("one"),
            word("boxed"),
            word("many"),
            word("literal"),
            type.value("manyItem", word("literal")),
            word("manyLiteral"),
            word("sized"),
            word("call"),
            word("callMany"),
            word("value")};
}

constexpr std::string_view kHex = "0123456789abcdef";

/// A code unit of UTF-16 as an escape.
void appendUnit(std::string& literal, char32_t unit) {
    literal += "\\u";
    for (unsigned shift = 16; shift > 0; shift -= 4)
        literal += kHex[unit >> (shift - 4U) & 15U];
}

/// The end of a part of a literal and the start of the next, before its character `at`.
void appendBreak(std::string& literal, std::size_t at, std::size_t part) {
    if (at > 0 && at % part == 0)
        literal += at == part ? "\".concat(\"" : "\").concat(\"";
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
    unicodeEscapes_ = description.value("unicodeEscapes", false);
    lowerPackages_ = description.value("lowerPackage", false);
    markupComments_ = description.value("markupComments", false);
    opensBlocksOnOwnLines_ = description.value("bracesOnOwnLines", false);
    importsNames_ = description.value("importsNames", false);
    longestText_ = description.value("longestText", std::size_t{0});
    reserved_ = description.at("reserved").get<std::unordered_set<std::string>>();
    if (description.contains("reservedPackages"))
        reservedPackages_ = description.at("reservedPackages").get<std::unordered_set<std::string>>();
    words_ = description.at("words").get<std::map<std::string, std::string>>();
    for (const auto& [format, type] : description.at("types").items())
        types_[format] = wordsOf(type);
    for (const TemplateFile& file : templateFiles()) {
        if (folderOf(file) != folder_ || file.path.ends_with(kDescription))
            continue;
        const std::string path(file.path.substr(folder_.size() + 1));
        const auto each = description.at("each").find(path);
        const bool isNamed = each != description.at("each").end();
        outputs_.push_back({TextTemplate(file.text), isNamed ? each->at(0).get<std::string>() : std::string(),
                            TextTemplate(isNamed ? each->at(1).get<std::string>() : path)});
    }
}

void Language::appendEscaped(std::string& literal, unsigned char code) const {
    // Two question marks begin a trigraph, which older compilers replace, and newer ones warn of.
    const bool beginsTrigraph = code == '?' && literal.ends_with('?');
    if (code == '"' || code == '\\')
        literal.append(1, '\\').append(1, static_cast<char>(code));
    else if (code >= 0x20 && code < 0x7F && !beginsTrigraph)
        literal += static_cast<char>(code);
    else if (octalEscapes_)
        literal.append({'\\', static_cast<char>('0' + (code >> 6U)),
                        static_cast<char>('0' + (code >> 3U & 7U)), static_cast<char>('0' + (code & 7U))});
    else
        literal.append("\\u00").append({kHex[code >> 4U], kHex[code & 15U]});
}

std::string Language::textLiteral(std::string_view bytes) const {
    const std::size_t part = longestText_ == 0 ? bytes.size() : longestText_;
    std::string literal = "\"";
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        appendBreak(literal, at, part);
        appendEscaped(literal, static_cast<unsigned char>(bytes[at]));
    }
    return literal + (bytes.size() > part ? "\")" : "\"");
}

std::string Language::shownLiteral(std::string_view text) const {
    if (!unicodeEscapes_)
        return textLiteral(text);
    const std::size_t part = longestText_ == 0 ? text.size() : longestText_;
    std::string literal = "\"";
    constexpr char32_t kFirstPair = 0x10000;
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count) {
        appendBreak(literal, count, part);
        const DecodedCharacter character = decodeCharacter(text, at);
        const char32_t point = character.codePoint;
        at += character.length;
        if (point < 0x80) {
            appendEscaped(literal, static_cast<unsigned char>(point));
        } else if (point < kFirstPair) {
            appendUnit(literal, point);
        } else {
            appendUnit(literal, 0xD800 + ((point - kFirstPair) >> 10U));
            appendUnit(literal, 0xDC00 + (point & 0x3FFU));
        }
    }
    return literal + (count > part ? "\")" : "\"");
}

std::string filled(std::string_view pattern, std::string_view text) {
    return replaceAll(pattern, "{}", text);
}

} // namespace zb::generate
