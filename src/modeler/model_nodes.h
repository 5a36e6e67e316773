#pragma once

#include "platform/tree/color.h"

#include <string>
#include <string_view>

namespace zb {

class Node;
class Tree;
class TRMessageRecord;

// The nodes of the two trees of the transaction model: a root, the TR messages below it, and below a received
// message its TR items.

/// Key and text of the roots.
inline constexpr std::string_view kReceiveRoot = "Receive TRMessages";
inline constexpr std::string_view kSendRoot = "Send TRMessages";

inline constexpr const char* kRootPicture = "TRMsg";
inline constexpr const char* kReceivedPicture = "RcvTRMsg";
inline constexpr const char* kSentPicture = "SndTRMsg";
inline constexpr const char* kDefaultItemPicture = "DefaultTRItem";
inline constexpr const char* kUserItemPicture = "UserTRItem";

inline constexpr Color kModelRootColor{0, 0, 255};
/// A press removes an error mark by setting this colour.
inline constexpr Color kUnmarkedColor{0, 0, 0};

/// Key of an item's node and row.
std::string itemKey(std::string_view message, std::string_view item);
/// The picture of an item: "PORT", "LOT" and "CST", compared exactly, have their own.
const char* itemPicture(std::string_view item);

enum class ModelLevel { Root, Message, Item };
ModelLevel levelOf(const Node& node);
/// Whether a failed build has marked the node or row with this colour.
bool isErrorMark(const OptionalColor& color);
/// Whether a failed build has marked a message of the tree.
bool hasMarkedMessage(const Tree& tree);

/// Null when the tree shows no such message or item.
Node* findMessageNode(const Tree& tree, std::string_view name);
Node* findItemNode(const Tree& tree, std::string_view message, std::string_view item);

/// Clears the tree and selects its new root.
void plantRoot(Tree& tree, std::string_view root);
/// Adds a message below the root, which is expanded to show it. A name whose Key is used by the item of
/// another message is shown without a Key. Null when the tree has no root or already shows the message.
Node* addMessageNode(Tree& tree, std::string_view name, const char* picture);
/// Null when the message already shows the item.
Node* addItemNode(Tree& tree, Node& message, std::string_view item, const char* picture);
/// One node per item, below the message's node.
void addTRItemNodes(Tree& tree, Node& message, const TRMessageRecord& record);

/// Whether the node, with those below it, shows the message and the names of these items.
bool showsMessage(const Node& node, const TRMessageRecord& record, bool withItems);

/// Selects the node and expands its ancestors.
void reveal(Tree& tree, Node& node);

/// Removes the nodes between the node and its next sibling, or after a node without one, by position in the
/// tree's flat collection. Items that were later added to an earlier message are also in that range: the view
/// loses them until it is rebuilt.
void removeChildNodes(Tree& tree, const Node& node);

} // namespace zb
