#pragma once

#include "platform/xml_element.h"

#include <stdexcept>
#include <string>

namespace zb {

/// A text or a name that a document cannot contain.
class XmlTextError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Throws XmlTextError when the element or a descendant has a text or an attribute that a document cannot
/// contain.
void demandXmlText(const XmlElement& element);

/// The bytes of a document: the instruction `<?xml version="1.0"?>` and the root, in UTF-8, without white
/// space between elements. Line ends and tabs in texts and attributes are escaped, so that a reader gets them
/// unchanged. Throws like demandXmlText.
std::string xmlDocument(const XmlElement& root);

} // namespace zb
