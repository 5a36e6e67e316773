#include "messages/sml_text.h"

#include "messages/item_grammar.h"

namespace zb {

namespace {

std::string_view smlType(std::string_view type) {
    return type == "X" ? "V" : type;
}

class Writer {
public:
    std::string write(const std::vector<const SECSMessageRecord*>& records) {
        for (const SECSMessageRecord* record : records)
            writeMessage(*record);
        return std::move(text_);
    }

private:
    void writeMessage(const SECSMessageRecord& record) {
        if (!record.getDescription().empty())
            text_.append("// ").append(record.getDescription()).append("\r\n");
        text_.append(record.getName()).append(": S").append(record.getStreamText());
        text_.append("F").append(record.getFunctionText()).append(record.getWait() ? " W" : "");
        text_.append(" // ").append(record.getDirection()).append(record.getReply() ? " <R>" : "");
        text_.append(record.getNoLogging() ? " <NL>" : "").append("\r\n");
        for (const SECSItemRecord& item : record.getItems())
            writeItem(item);
        closeTo(1);
        text_.append(".\r\n\r\n");
    }

    void writeItem(const SECSItemRecord& item) {
        closeTo(item.getLevel());
        indent(item.getLevel());
        text_.append("<").append(smlType(item.getType())).append(item.isFixed() ? "[" : "[0..");
        text_.append(std::to_string(item.getCount())).append("]");
        const ItemKind kind = itemKind(item.getType());
        if (kind == ItemKind::List)
            open_ = item.getLevel() + 1;
        if (kind == ItemKind::Quoted && writesValue(item))
            text_.append(" ").append(quotedSmlText(item.getValue()));
        else if (kind != ItemKind::Quoted && !item.getValue().empty())
            text_.append(" ").append(item.getValue());
        if (kind != ItemKind::List)
            text_.append(">");
        if (!item.getName().empty() || item.isKey())
            text_.append(" //").append(item.getName().empty() ? "" : " ").append(item.getName());
        text_.append(item.isKey() ? " [K]" : "").append("\r\n");
    }

    /// An empty text with a count is left for the user of the message to fill in.
    static bool writesValue(const SECSItemRecord& item) { return !item.getValue().empty(); }

    /// Closes the open lists down to the level of the next item.
    void closeTo(int level) {
        for (; open_ > level; --open_) {
            indent(open_ - 1);
            text_.append(">\r\n");
        }
    }

    void indent(int level) { text_.append(static_cast<std::size_t>(level) * 2, ' '); }

    std::string text_;
    int open_ = 1; ///< the level of the items in the innermost open list
};

} // namespace

std::string quotedSmlText(std::string_view text) {
    std::string quoted;
    do {
        const char quote = text.substr(0, text.find('\'')).find('"') == std::string_view::npos ? '"' : '\'';
        const std::string_view piece = text.substr(0, text.find(quote));
        quoted.append(quoted.empty() ? "" : " ").append(1, quote).append(piece).append(1, quote);
        text.remove_prefix(piece.size());
    } while (!text.empty());
    return quoted;
}

std::string composeSml(const std::vector<const SECSMessageRecord*>& records) {
    return Writer().write(records);
}

} // namespace zb
