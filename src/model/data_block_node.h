#pragma once

#include "platform/xml_element.h"

namespace zb {

class SECSMessageRecord;

/// A message with all its values as an element "DataBlock". What XML cannot hold is in hexadecimal, in an
/// attribute whose name ends in "Hex".
XmlElement dataBlockNodeOf(const SECSMessageRecord& message);

} // namespace zb
