#pragma once

#include "messages/bare_sml.h"
#include "platform/tree/node_tree.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// Messages and items as they travel between two instances of the program: each as in the editor's clipboard,
/// one message (three root nodes) or one item (one root node).
using CopiedNodes = std::vector<std::unique_ptr<NodeTree>>;

/// A text that loses nothing.
std::string exchangeTextOf(const CopiedNodes& copies);
/// None when the text is not one of `exchangeTextOf`, or holds something that is neither a message nor an
/// item.
std::optional<CopiedNodes> copiesOfExchangeText(std::string_view text);

/// SML for other programs: of messages as a whole, of items alone their structures. Lines end in CR LF.
std::string sharedTextOf(const CopiedNodes& copies);
/// The same without names, counts and comments, for strict readers.
BareSml bareTextOf(const CopiedNodes& copies);

} // namespace zb
