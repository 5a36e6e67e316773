#include "messages/smd/smd_text.h"

#include "messages/item_grammar.h"
#include "platform/text.h"
#include "platform/text_file.h"

namespace zb {

namespace {

struct ItemLine {
    std::size_t level;
    std::string_view text;
};

std::vector<ItemLine> itemLines(std::string_view body) {
    std::vector<ItemLine> items;
    LineReader lines(body);
    while (const auto line = lines.next()) {
        std::string_view text = *line;
        const int level = countOf(takeWord(text));
        items.push_back({static_cast<std::size_t>(level < 1 ? 1 : level), text});
    }
    return items;
}

class Writer {
public:
    Writer(std::string& text, SmdForm form) : text_(text), build_(form == SmdForm::Build) {}

    void write(const SECSMessageRecord& record) {
        writeComment(record.getDescription());
        text_.append(record.getNodeText());
        const std::string body = record.getBodyText();
        const std::vector<ItemLine> items = itemLines(body);
        text_.append(items.empty() ? ".\r\n" : "\r\n");
        for (std::size_t i = 0; i < items.size(); ++i)
            writeItem(items[i], i + 1 < items.size() ? items[i + 1].level : 1, i + 1 == items.size());
    }

private:
    void writeComment(std::string_view description) {
        const std::string banner = build_ ? std::string(70, '*') + "\r\n" : std::string();
        text_.append(banner).append("* ").append(description).append("\r\n").append(banner);
    }

    void writeItem(const ItemLine& item, std::size_t nextLevel, bool isLast) {
        indent(item.level);
        const bool opens = nextLevel > item.level;
        text_.append(build_ ? "<" : "").append(item.text);
        if (build_ && !opens)
            text_ += '>';
        for (std::size_t level = item.level; build_ && level > nextLevel; --level) {
            text_.append("\r\n");
            indent(level - 1);
            text_ += '>';
        }
        text_.append(isLast ? ".\r\n" : "\r\n");
    }

    void indent(std::size_t level) { text_.append(level * 4, ' '); }

    std::string& text_;
    bool build_;
};

} // namespace

std::string composeSmd(const std::vector<const SECSMessageRecord*>& records, SmdForm form) {
    std::string text;
    Writer writer(text, form);
    for (const SECSMessageRecord* record : records)
        writer.write(*record);
    return text;
}

} // namespace zb
