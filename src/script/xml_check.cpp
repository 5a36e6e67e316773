#include "script/xml_check.h"

#include "platform/code_page.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <set>

namespace zb {

namespace {

constexpr std::string_view kSpace = " \t\r\n";
constexpr const char* kUnfinished = "markup without an end";

bool isSpace(std::string_view text) {
    return text.find_first_not_of(kSpace) == std::string_view::npos;
}

bool isCharacter(std::uint32_t code) {
    if (code < 0x20)
        return code == '\t' || code == '\n' || code == '\r';
    return code <= 0x10FFFF && !(code >= 0xD800 && code <= 0xDFFF) && code != 0xFFFE && code != 0xFFFF;
}

bool isNumber(std::string_view text, int base) {
    std::uint32_t code = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), code, base);
    return read.ec == std::errc() && read.ptr == text.data() + text.size() && isCharacter(code);
}

/// Walks the markup once. Checks that a lenient reader makes, such as the order of closing tags, are not
/// repeated.
class XmlWalk {
public:
    explicit XmlWalk(std::string_view text) : rest_(text) {}

    std::string run() {
        while (!rest_.empty() && fault_.empty())
            step();
        return fault_;
    }

private:
    void step() {
        if (rest_.starts_with("<!--"))
            comment();
        else if (rest_.starts_with("<![CDATA["))
            characterData();
        else if (rest_.starts_with("<?"))
            takeTo("?>");
        else if (rest_.starts_with("<!"))
            documentType();
        else if (rest_.starts_with('<'))
            tag();
        else
            text();
    }

    /// Skips everything up to and including the mark.
    std::string_view takeTo(std::string_view mark, std::size_t from = 0) {
        const auto end = rest_.find(mark, from);
        if (end == std::string_view::npos) {
            fault_ = kUnfinished;
            return {};
        }
        const auto taken = rest_.substr(0, end);
        rest_.remove_prefix(end + mark.size());
        return taken;
    }

    void comment() {
        constexpr std::size_t kStart = 4;
        const auto inside = takeTo("-->", kStart);
        if (fault_.empty() && (contains(inside.substr(kStart), "--") || inside.ends_with("--->")))
            fault_ = "\"--\" in a comment";
    }

    void characterData() {
        takeTo("]]>");
        if (fault_.empty() && depth_ == 0)
            fault_ = "text beside the root";
    }

    /// A document type may declare entities, so that references after it are accepted.
    void documentType() {
        declaresEntities_ = true;
        int open = 0;
        for (std::size_t at = 0; at < rest_.size(); ++at) {
            if (rest_[at] == '<')
                ++open;
            else if (rest_[at] == '>' && --open == 0) {
                rest_.remove_prefix(at + 1);
                return;
            }
        }
        fault_ = kUnfinished;
    }

    void tag() {
        rest_.remove_prefix(1);
        if (rest_.starts_with('/')) {
            --depth_;
            takeTo(">");
            return;
        }
        ++depth_;
        std::set<std::string_view> names;
        while (fault_.empty()) {
            const auto at = rest_.find_first_of("\"'>");
            if (at == std::string_view::npos) {
                fault_ = kUnfinished;
                return;
            }
            const auto before = rest_.substr(0, at);
            const char mark = rest_[at];
            rest_.remove_prefix(at + 1);
            if (mark == '>') {
                depth_ -= before.ends_with('/') ? 1 : 0;
                return;
            }
            attribute(before, mark, names);
        }
    }

    void attribute(std::string_view before, char mark, std::set<std::string_view>& names) {
        const auto end = before.find_last_not_of("= \t\r\n");
        if (end == std::string_view::npos) {
            fault_ = "an attribute without a name";
            return;
        }
        before = before.substr(0, end + 1);
        const auto name = before.substr(before.find_last_of(kSpace) + 1);
        if (!names.insert(name).second)
            fault_ = "the attribute " + std::string(name) + " twice";
        const auto value = takeTo(std::string_view(&mark, 1));
        if (contains(value, "<"))
            fault_ = "\"<\" in an attribute";
        references(value);
    }

    void text() {
        const auto run = rest_.substr(0, rest_.find('<'));
        rest_.remove_prefix(run.size());
        if (depth_ == 0 && !isSpace(run))
            fault_ = "text beside the root";
        else if (contains(run, "]]>"))
            fault_ = "\"]]>\" in a text";
        references(run);
    }

    void references(std::string_view text) {
        for (auto at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1)) {
            const auto end = text.find(';', at);
            const auto name =
                end == std::string_view::npos ? std::string_view() : text.substr(at + 1, end - at - 1);
            if (!isReference(name) && fault_.empty())
                fault_ = "a stray \"&\"";
        }
    }

    bool isReference(std::string_view name) const {
        constexpr std::array<std::string_view, 5> kKnown{"amp", "lt", "gt", "quot", "apos"};
        if (name.starts_with("#x"))
            return isNumber(name.substr(2), 16);
        if (name.starts_with('#'))
            return isNumber(name.substr(1), 10);
        if (declaresEntities_)
            return !name.empty() && name.find_first_of(kSpace) == std::string_view::npos;
        return std::find(kKnown.begin(), kKnown.end(), name) != kKnown.end();
    }

    std::string_view rest_;
    std::string fault_;
    int depth_ = 0;
    bool declaresEntities_ = false;
};

/// Whether the declaration at the start names an encoding, which only the reader knows.
bool hasOtherEncoding(std::string_view bytes) {
    if (!bytes.starts_with("<?xml"))
        return false;
    const std::string declaration = upper(bytes.substr(0, bytes.find("?>")));
    return contains(declaration, "ENCODING") && !contains(declaration, "UTF-8");
}

} // namespace

std::string findXmlFault(std::string_view bytes) {
    const bool isWide = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    if (!isWide && !isValidUtf8(bytes) && !hasOtherEncoding(bytes))
        return "bytes that are no UTF-8";
    std::string text = isWide ? decodeText(bytes, CodePage(1252)) : std::string(bytes);
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text.starts_with(kMark))
        text.erase(0, kMark.size());
    const bool allPrint = std::all_of(
        text.begin(), text.end(), [](char byte) { return isCharacter(static_cast<unsigned char>(byte)); });
    return allPrint ? XmlWalk(text).run() : "a control character";
}

} // namespace zb
