#include "model/data_block_node.h"

#include "messages/item_grammar.h"
#include "messages/message_record.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {

namespace {

constexpr std::string_view flag(bool on) {
    return on ? "Y" : "N";
}

std::string hexOf(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        hex += kDigits[value >> 4U];
        hex += kDigits[value & 0xFU];
    }
    return hex;
}

/// Characters that XML cannot hold, such as the control characters in strings of real equipment, are written
/// in hexadecimal under another name: no value may be lost.
void setText(XmlElement& element, const std::string& name, std::string_view text) {
    if (isXmlText(text))
        setElementAttribute(element, name, std::string(text));
    else
        setElementAttribute(element, name + "Hex", hexOf(text));
}

XmlElement headOf(const SECSMessageRecord& message) {
    XmlElement block = createElement("DataBlock");
    setText(block, "Name", message.getName());
    setElementAttribute(block, "Stream", std::to_string(message.getStream()));
    setElementAttribute(block, "Function", std::to_string(message.getFunction()));
    setElementAttribute(block, "Wait", std::string(flag(message.getWait())));
    setElementAttribute(block, "Reply", std::string(flag(message.getReply())));
    setElementAttribute(block, "NoLogging", std::string(flag(message.getNoLogging())));
    setElementAttribute(block, "Direction", std::string(message.getDirection()));
    return block;
}

XmlElement elementOf(const SECSItemRecord& item) {
    XmlElement element = createElement("Item");
    setText(element, "Format", item.getType());
    setText(element, "Name", item.getName());
    setElementAttribute(element, "Count", std::to_string(item.getCount()));
    setElementAttribute(element, "Fixed", std::string(flag(item.isFixed())));
    setElementAttribute(element, "Key", std::string(flag(item.isKey())));
    if (itemKind(item.getType()) != ItemKind::List)
        setText(element, "Value", item.getValue());
    return element;
}

} // namespace

XmlElement dataBlockNodeOf(const SECSMessageRecord& message) {
    XmlElement block = headOf(message);
    // The elements around the next item, from the block inwards. They keep their place in memory as long as
    // they are here: only the innermost gets children.
    struct Open {
        XmlElement* element;
        int level;
    };
    std::vector<Open> open{{&block, 0}};
    for (const SECSItemRecord& item : message.getItems()) {
        while (open.size() > 1 &&
               (open.back().level >= item.getLevel() || open.size() > std::size_t{kDeepestLevel}))
            open.pop_back();
        open.push_back({&open.back().element->append(elementOf(item)), item.getLevel()});
    }
    setElementAttribute(block, "Count", std::to_string(block.children().size()));
    return block;
}

} // namespace zb
