#pragma once

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zb {

struct XmlAttribute {
    std::string name;
    std::string value;
    bool operator==(const XmlAttribute&) const = default;
};

/// The places of attributes by their names, for elements of many. A copy starts empty: it is a memory aid,
/// and no part of the element's value.
class AttributePlaces {
public:
    AttributePlaces() = default;
    AttributePlaces(const AttributePlaces& /*other*/) {}
    AttributePlaces& operator=(const AttributePlaces& /*other*/) {
        known_.reset();
        return *this;
    }
    AttributePlaces(AttributePlaces&&) noexcept = default;
    AttributePlaces& operator=(AttributePlaces&&) noexcept = default;
    ~AttributePlaces() = default;

    /// The position of the attribute with that name, otherwise the number of attributes. Names may be
    /// appended between two calls, but not changed.
    std::size_t find(const std::vector<XmlAttribute>& attributes, std::string_view name);

    bool operator==(const AttributePlaces& /*other*/) const { return true; }

private:
    std::unique_ptr<std::unordered_map<std::string, std::size_t>> known_;
};

/// A name that an XML element cannot have.
class XmlNameError : public std::runtime_error {
public:
    explicit XmlNameError(std::string_view name)
        : std::runtime_error("\"" + std::string(name) + "\" is no XML name") {}
};

/// An element of an XML document: a value, with its attributes and children in order. An element contains
/// text or children; with both, the text comes first.
class XmlElement {
public:
    /// Throws XmlNameError for a name that is not an XML Name.
    explicit XmlElement(std::string name);

    const std::string& name() const { return name_; }
    const std::string& text() const { return text_; }
    void setText(std::string text) { text_ = std::move(text); }
    const std::vector<XmlAttribute>& attributes() const { return attributes_; }
    const std::vector<XmlElement>& children() const { return children_; }
    std::vector<XmlElement>& children() { return children_; }
    /// The stored child, valid until the next change of the children.
    XmlElement& append(XmlElement child);

    bool operator==(const XmlElement&) const = default;

private:
    friend XmlElement& setElementAttribute(XmlElement& element, std::string_view name, std::string value);
    std::string name_;
    std::string text_;
    std::vector<XmlAttribute> attributes_;
    AttributePlaces places_;
    std::vector<XmlElement> children_;
};

/// Whether an element may have the name: Name of XML 1.0, fifth edition, 2.3, without the colon, which
/// readers take for the end of a namespace prefix.
bool isXmlName(std::string_view name);
/// Whether a document can contain the text: UTF-8 without control characters except tab and line ends, and
/// without U+FFFE and U+FFFF.
bool isXmlText(std::string_view text);

/// The first child with exactly that name; null when there is none.
XmlElement* findChildElement(XmlElement& parent, std::string_view name);
/// An element with a text; throws like the constructor.
XmlElement createTextElement(std::string name, std::string text);
XmlElement createElement(std::string name);
/// Sets or adds the attribute, and returns the element.
XmlElement& setElementAttribute(XmlElement& element, std::string_view name, std::string value);
/// "" when the attribute is absent.
const std::string& getElementAttribute(const XmlElement& element, std::string_view name);

} // namespace zb
