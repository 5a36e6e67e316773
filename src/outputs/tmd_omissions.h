#pragma once

#include "platform/xml_element.h"

#include <string>
#include <vector>

namespace zb {

struct ProjectView;

/// What the document of `composeTmd` lacks of the model, one text for each kind of record:
/// "15 of 17 received messages". Empty when nothing is missing. The project has a model.
std::vector<std::string> omissionsOf(const XmlElement& document, const ProjectView& project);

} // namespace zb
