#include "platform/xml_document.h"

#include "platform/text.h"

#include <pugixml.hpp>

#include <vector>

namespace zb {

namespace {

/// Visits the element and its descendants, parents first; `visit` returns the value with which its children
/// are visited. Without recursion, for documents of any depth.
template<typename Context, typename Visit>
void visitElements(const XmlElement& root, Context start, Visit visit) {
    struct Open {
        const XmlElement* element;
        Context context;
        std::size_t next;
    };
    std::vector<Open> open{{&root, visit(root, start), 0}};
    while (!open.empty()) {
        Open& innermost = open.back();
        if (innermost.next == innermost.element->children().size()) {
            open.pop_back();
            continue;
        }
        const XmlElement& child = innermost.element->children()[innermost.next++];
        open.push_back({&child, visit(child, innermost.context), 0});
    }
}

void demandOwnText(const XmlElement& element) {
    bool fits = isXmlText(element.text());
    for (const XmlAttribute& attribute : element.attributes())
        fits = fits && isXmlName(attribute.name) && isXmlText(attribute.value);
    if (!fits)
        throw XmlTextError("The element " + element.name() + " holds what no XML document can hold");
}

pugi::xml_node write(const XmlElement& element, pugi::xml_node parent) {
    pugi::xml_node node = parent.append_child(element.name().c_str());
    for (const XmlAttribute& attribute : element.attributes())
        node.append_attribute(attribute.name.c_str()).set_value(attribute.value.c_str());
    if (!element.text().empty())
        node.append_child(pugi::node_pcdata).set_value(element.text().c_str());
    return node;
}

class StringWriter final : public pugi::xml_writer {
public:
    void write(const void* data, std::size_t size) override {
        bytes.append(static_cast<const char*>(data), size);
    }
    std::string bytes;
};

} // namespace

void demandXmlText(const XmlElement& element) {
    visitElements(element, 0, [](const XmlElement& each, int) {
        demandOwnText(each);
        return 0;
    });
}

std::string xmlDocument(const XmlElement& root) {
    demandXmlText(root);
    pugi::xml_document document;
    document.append_child(pugi::node_declaration).append_attribute("version").set_value("1.0");
    visitElements(root, document.root(), write);
    StringWriter writer;
    document.save(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    // The library escapes carriage returns in attributes only, so the remaining ones are in texts, where a
    // reader would take them for line ends.
    return replaceAll(writer.bytes, "\r", "&#13;");
}

} // namespace zb
