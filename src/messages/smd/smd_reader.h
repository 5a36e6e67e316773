#pragma once

#include "messages/message_record.h"
#include "platform/progress.h"
#include "platform/tree/node_tree.h"

#include <functional>
#include <string>
#include <string_view>

namespace zb {

/// Called with the name of each message that is added to a tree.
using MessageNameListener = std::function<void(std::string_view name)>;

/// Reads the lines of a project's section of messages into an empty tree. Lines that break the grammar become
/// nodes as they are; a line that begins with "##" only ends a description. A second message of the same name
/// gets no Key.
void readSmdSection(NodeTree& tree, std::string_view sectionText, const MessageNameListener& onMessage = {},
                    const Progress& progress = {});

/// Adds a message after all others. The status is "Key", and nothing is added, when the tree already has the
/// name; otherwise it is empty.
[[nodiscard]] std::string addMessageToTree(NodeTree& tree, const SECSMessageRecord& record);

/// Puts a message with its items in the place of the one of the same name; false, and nothing is changed,
/// when the tree has none.
bool replaceMessageInTree(NodeTree& tree, const SECSMessageRecord& record);

} // namespace zb
