#pragma once

#include <string>

namespace zb {

struct DocumentedSequence;

/// A sequence as a message sequence chart: an SVG element for an HTML document, in the colour of its text.
std::string sequenceChart(const DocumentedSequence& sequence);

} // namespace zb
