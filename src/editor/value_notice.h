#pragma once

#include <string>

namespace zb {

class CodePage;
class Desktop;
class Node;
class SECSItemRecord;

/// Tells the user of a value that was not kept; nothing for an empty text.
void reportLoss(Desktop& desktop, const std::string& loss);

/// Normalizes the item, and reports what that has cut.
void normalizeAndReport(Desktop& desktop, Node& node, const SECSItemRecord& record, const CodePage& codePage);

} // namespace zb
