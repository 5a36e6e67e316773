#include "platform/xml_element.h"

#include "platform/text.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace zb {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// NameStartChar and the additions of NameChar: XML 1.0, fifth edition, productions 4 and 4a. The colon is
// left out: the text before it would be an undeclared namespace prefix.
constexpr Range kNameStart[] = {
    {'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},     {0xD8, 0xF6},
    {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F},
    {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};
constexpr Range kNameMore[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

template<typename Ranges>
bool within(char32_t character, const Ranges& ranges) {
    return std::any_of(std::begin(ranges), std::end(ranges), [&](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

bool isXmlCharacter(char32_t character) {
    constexpr Range kCharacters[] = {
        {0x9, 0xA}, {0xD, 0xD}, {0x20, 0xD7FF}, {0xE000, 0xFFFD}, {0x10000, 0x10FFFF},
    };
    return within(character, kCharacters);
}

} // namespace

bool isXmlName(std::string_view name) {
    for (std::size_t at = 0; at < name.size();) {
        const DecodedCharacter character = decodeCharacter(name, at);
        const bool starts = within(character.codePoint, kNameStart);
        if (!character.valid || (!starts && (at == 0 || !within(character.codePoint, kNameMore))))
            return false;
        at += character.length;
    }
    return !name.empty();
}

bool isXmlText(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const DecodedCharacter character = decodeCharacter(text, at);
        if (!character.valid || !isXmlCharacter(character.codePoint))
            return false;
        at += character.length;
    }
    return true;
}

std::size_t AttributePlaces::find(const std::vector<XmlAttribute>& attributes, std::string_view name) {
    constexpr std::size_t kFew = 16;
    if (attributes.size() <= kFew) {
        const auto found =
            std::find_if(attributes.begin(), attributes.end(),
                         [&](const XmlAttribute& attribute) { return attribute.name == name; });
        return static_cast<std::size_t>(found - attributes.begin());
    }
    if (!known_)
        known_ = std::make_unique<std::unordered_map<std::string, std::size_t>>();
    for (std::size_t place = known_->size(); place < attributes.size(); ++place)
        known_->emplace(attributes[place].name, place);
    const auto found = known_->find(std::string(name));
    return found == known_->end() ? attributes.size() : found->second;
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
    const std::size_t place = element.places_.find(element.attributes_, name);
    if (place < element.attributes_.size())
        element.attributes_[place].value = std::move(value);
    else
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
