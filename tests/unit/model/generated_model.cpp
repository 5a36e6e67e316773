#include "unit/model/generated_model.h"

#include <array>

namespace zb::test {

namespace {

using namespace std::string_literals;

const std::string& nastyPiece(std::mt19937& random) {
    static const std::array kPieces{
        " "s,
        "  "s,
        "\r\n"s,
        "\r"s,
        "\n"s,
        "\t"s,
        "\\"s,
        "\\n"s,
        "\\x41"s,
        "\\s"s,
        "\""s,
        "'"s,
        "="s,
        "###[SEQUENCE TABLE]"s,
        "\r\n###[SEQUENCE TABLE]\r\n"s,
        "## [EDIT SMD]"s,
        "\r\n## [EDIT SMD]\r\n"s,
        "###[TRANSACTION MODEL] 1"s,
        "## [TR MESSAGE] X"s,
        "EndTRMessage"s,
        "\r\nEndTRItem\r\n"s,
        "* x"s,
        "A: S1 F1 H->E."s,
        "\u00FF"s,
        "\u00FFSeqName\u00FF\u00FF"s,
        "\uC124\uBE44"s,
        "\U0001F600"s,
        "\uFEFF"s,
        "\uFFFE"s,
        "\uFFFF"s,
        "\u2028"s,
        "\u0085"s,
        "\0"s,
        "\x01"s,
        "\x1F"s,
        "\x7F"s,
        "\xFF"s,
        "\xC3"s,
        "\xED\xA0\x80"s,
        "\xEF\xBB"s,
        "NONE"s,
        "CEID = 100"s,
        "LOTID[1]"s,
        "."s,
        "#"s,
        "TRItem"s,
        "x"s,
    };
    return kPieces[std::uniform_int_distribution<std::size_t>(0, kPieces.size() - 1)(random)];
}

std::string inQuotes(std::string_view text) {
    return std::string("[").append(text).append("]\n");
}

std::string described(const XmlElement& element) {
    std::string text = "<" + element.name();
    for (const XmlAttribute& attribute : element.attributes())
        text += "|" + attribute.name + "=" + attribute.value;
    text += ">" + element.text();
    for (const XmlElement& child : element.children())
        text += described(child);
    return text + "</>";
}

std::string described(const SECSMessageRecord& block) {
    std::string text = inQuotes(block.getName()) + inQuotes(block.getHeadText()) +
                       inQuotes(block.getBodyText()) + inQuotes(block.getDirection());
    for (const int number : {block.getStream(), block.getFunction()})
        text += std::to_string(number) + " ";
    for (const bool flag : {block.getWait(), block.getReply(), block.getNoLogging()})
        text += flag ? "1" : "0";
    for (const SECSItemRecord& item : block.getItems())
        text += inQuotes(item.getType() + "|" + item.getName() + "|" + item.getValue() + "|" +
                         std::to_string(item.getCount()) + (item.isFixed() ? " fixed" : " variable") +
                         (item.isKey() ? " key " : " ") + std::to_string(item.getLevel()));
    return text;
}

std::string described(const TRItemRecord& item) {
    return inQuotes(item.Name()) + inQuotes(item.Type()) + inQuotes(item.Value()) +
           inQuotes(item.ABSValue()) + inQuotes(item.StatementText()) +
           (item.ConditionNode() ? described(*item.ConditionNode()) : "no condition") + "\n";
}

} // namespace

std::string described(const TRMessageRecord& message) {
    std::string text = "message " + inQuotes(message.Name()) + inQuotes(message.SECSMessage()) +
                       inQuotes(message.Condition()) + (message.Report() ? "report " : "silent ") +
                       std::to_string(message.Direction()) + "\n" +
                       (message.DataBlock() ? described(*message.DataBlock()) : "no data block") + "\n";
    for (const auto& item : message.TRItems())
        text += "item " + described(*item);
    return text;
}

std::string described(const TRModelStore& model) {
    std::string text;
    for (const auto& message : model.TRMessages())
        text += described(*message);
    return text;
}

std::string ModelMaker::anyText() {
    std::string text;
    for (int pieces = upTo(5); pieces > 0; --pieces)
        text += nastyPiece(random_);
    return text;
}

XmlElement ModelMaker::anyElement(std::string name, int depth) {
    XmlElement element(std::move(name));
    for (const char* attribute : {"Type", "Condition", "\uC870\uAC74\uFEFF", "_.-1"}) {
        if (oneIn(2))
            setElementAttribute(element, attribute, anyText());
    }
    if (oneIn(2))
        element.setText(anyText());
    for (int children = depth < 4 ? upTo(3) : 0; children > 0; --children)
        element.append(anyElement(oneIn(5) ? "\uC870\uAC74\uFEFF" : "Statement", depth + 1));
    return element;
}

SECSMessageRecord ModelMaker::anyBlock() {
    SECSMessageRecord block;
    if (oneIn(3)) {
        block.parseSmd(
            "* " + anyText() +
                "\r\nHi: S1 F2 W <R> <NL> H->E\r\n    L 2\r\n"
                "        A 16V MDLN ' it\\s \uC124 ' [K]\r\n        U4 2 IDS 1 2\r\n    B 1 0.\r\n",
            kFormatSmd);
        return block;
    }
    std::string body;
    for (int items = upTo(4); items > 0; --items) {
        std::string text = anyText();
        for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n'))
            text.erase(end, 1);
        body += std::to_string(1 + upTo(3)) + " " + (oneIn(2) ? "A 3 N '" + text + "'" : text) + "\r\n";
    }
    block.parseTexts(oneIn(4) ? anyText() : "S1F3: S1 F3 W H<-E", anyText(), body);
    return block;
}

std::unique_ptr<TRItemRecord> ModelMaker::anyItem(std::string name) {
    auto item = std::make_unique<TRItemRecord>();
    item->setName(std::move(name));
    item->setType(oneIn(4) ? anyText() : "STRING");
    item->setValue(anyText());
    item->setABSValue(anyText());
    item->setStatementText(anyText());
    if (!oneIn(3))
        item->setConditionNode(anyElement("Condition", 1));
    return item;
}

void ModelMaker::fill(TRModelStore& model, int messages) {
    constexpr std::array kDirections{1, 2, 1, 2, 0, -1, 2147483647, -2147483647 - 1};
    for (int number = 0; number < messages; ++number) {
        auto message = std::make_unique<TRMessageRecord>();
        message->setName(anyText() + (oneIn(3) ? "" : std::to_string(number)));
        message->setSECSMessage(anyText());
        message->setCondition(anyText());
        message->setReport(oneIn(2));
        message->setDirection(kDirections[static_cast<std::size_t>(upTo(7))]);
        if (oneIn(2))
            message->setDataBlock(anyBlock());
        for (int items = upTo(3); items > 0; --items)
            message->addTRItem(anyItem(oneIn(4) ? anyText() : "LOT" + std::to_string(items)));
        model.addTRMessage(std::move(message));
    }
}

} // namespace zb::test
