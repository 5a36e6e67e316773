#pragma once

#include "platform/tree/color.h"

#include <string>
#include <string_view>

namespace zb {

class Node;
class Tree;
class TRMessageRecord;

// The nodes of the two trees that show the transaction model: a root, the TR messages below it, and below a
// received message its TR items.

/// Key and text of the roots.
inline constexpr std::string_view kReceiveRoot = "Receive TRMessages";
inline constexpr std::string_view kSendRoot = "Send TRMessages";

inline constexpr const char* kRootPicture = "TRMsg";
inline constexpr const char* kReceivedPicture = "RcvTRMsg";
inline constexpr const char* kSentPicture = "SndTRMsg";
inline constexpr const char* kDefaultItemPicture = "DefaultTRItem";
inline constexpr const char* kUserItemPicture = "UserTRItem";

inline constexpr Color kModelRootColor{0, 0, 255};
/// A press takes an error mark off by setting this one.
inline constexpr Color kUnmarkedColor{0, 0, 0};

/// Key of an item's node and row.
std::string itemKey(std::string_view message, std::string_view item);
/// The picture of an item: "PORT", "LOT" and "CST", letter by letter, have one of their own.
const char* itemPicture(std::string_view item);

enum class ModelLevel { Root, Message, Item };
ModelLevel levelOf(const Node& node);
/// Whether a failed build has marked the node or row of this colour.
bool isErrorMark(const OptionalColor& color);
/// Whether a failed build has marked a message of the tree.
bool hasMarkedMessage(const Tree& tree);

/// Null when the tree shows no such message or item.
Node* findMessageNode(const Tree& tree, std::string_view name);
Node* findItemNode(const Tree& tree, std::string_view message, std::string_view item);

/// Empties the tree and selects its new root.
void plantRoot(Tree& tree, std::string_view root);
/// Adds a message below the root, which opens to show it. A name whose Key is taken by the item of another
/// message is shown without a Key. Null when the tree has no root or shows the message already.
Node* addMessageNode(Tree& tree, std::string_view name, const char* picture);
/// Null when the message shows the item already.
Node* addItemNode(Tree& tree, Node& message, std::string_view item, const char* picture);
/// One node an item, below the message's node.
void addTRItemNodes(Tree& tree, Node& message, const TRMessageRecord& record);

/// Selects the node and opens what lies above it.
void reveal(Tree& tree, Node& node);

/// Removes what stands between the node and its next sibling, or behind a node that has none, by position in
/// the tree's flat collection. Items that were added to an earlier message later on lie in that range, too:
/// the view loses them until it is rebuilt.
void removeChildNodes(Tree& tree, const Node& node);

} // namespace zb
