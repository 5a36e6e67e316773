#include "platform/xml_element.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace zb {

namespace {

struct Range {
    std::uint32_t first;
    std::uint32_t last;
};

// NameStartChar and what NameChar adds to it: XML 1.0, fifth edition, productions 4 and 4a.
constexpr Range kNameStart[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};
constexpr Range kNameMore[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

template<typename Ranges>
bool within(std::uint32_t character, const Ranges& ranges) {
    return std::any_of(std::begin(ranges), std::end(ranges), [&](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

// Takes one character off the text; 0 for what is no UTF-8.
std::uint32_t takeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (text.size() < length)
        return 0;
    std::uint32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t at = 1; at < length; ++at) {
        const auto next = static_cast<unsigned char>(text[at]);
        if ((next & 0xC0) != 0x80)
            return 0;
        character = (character << 6) | (next & 0x3FU);
    }
    text.remove_prefix(length);
    return character;
}

} // namespace

bool isXmlName(std::string_view name) {
    if (name.empty())
        return false;
    for (bool first = true; !name.empty(); first = false) {
        const std::uint32_t character = takeCharacter(name);
        if (!within(character, kNameStart) && (first || !within(character, kNameMore)))
            return false;
    }
    return true;
}

XmlElement::XmlElement(std::string name) : name_(std::move(name)) {
    if (!isXmlName(name_))
        throw XmlNameError(name_);
}

XmlElement& XmlElement::append(XmlElement child) {
    return children_.emplace_back(std::move(child));
}

XmlElement* findChildElement(XmlElement& parent, std::string_view name) {
    auto& children = parent.children();
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const XmlElement& child) { return child.name() == name; });
    return found == children.end() ? nullptr : &*found;
}

XmlElement createTextElement(std::string name, std::string text) {
    XmlElement element(std::move(name));
    element.setText(std::move(text));
    return element;
}

XmlElement createElement(std::string name) {
    return XmlElement(std::move(name));
}

XmlElement& setElementAttribute(XmlElement& element, std::string_view name, std::string value) {
    for (XmlAttribute& attribute : element.attributes_) {
        if (attribute.name == name) {
            attribute.value = std::move(value);
            return element;
        }
    }
    element.attributes_.push_back({std::string(name), std::move(value)});
    return element;
}

const std::string& getElementAttribute(const XmlElement& element, std::string_view name) {
    static const std::string kNone;
    const auto& attributes = element.attributes();
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const XmlAttribute& attribute) { return attribute.name == name; });
    return found == attributes.end() ? kNone : found->value;
}

} // namespace zb
