#pragma once

#include "messages/editor_pane.h"
#include "messages/item_grammar.h"
#include "messages/message_record.h"
#include "platform/tree/node_tree.h"

#include <string>
#include <string_view>

namespace zb {

class Desktop;

/// Reads the messages of a project file into an empty tree. A file that cannot be read leaves the tree empty;
/// lines that break the grammar become nodes as they are. A second message of the same name gets no Key.
void readSmdSection(NodeTree& tree, const std::string& path, EditorPane& pane);
/// The same from the decoded text of a project file.
void readSmdText(NodeTree& tree, std::string_view projectText, EditorPane& pane);

enum class OnDuplicate { Tell, KeepSilent };

/// Adds a message behind all others. The status is "Key", and nothing is added, when the tree has the name
/// already.
std::string addMessageToTree(NodeTree& tree, const SECSMessageRecord& record, OnDuplicate onDuplicate,
                             Desktop& desktop);

} // namespace zb
