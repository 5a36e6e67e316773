#pragma once

#include "compare/item_tree.h"
#include "compare/part_form.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The items of a part as lines, of which whole subtrees can be replaced. Lists whose count follows their sub
/// items keep doing so.
class ItemLines {
public:
    explicit ItemLines(const ItemTree& tree);

    /// The node with that path ("1/2"); none when there is none.
    static std::optional<std::size_t> find(const ItemTree& tree, std::string_view path);

    /// Replaces the text of one item. The count of a list goes on following its sub items.
    void setText(std::string_view path, std::string text);
    /// Replaces an item with all below it by the lines of a text in project form; none removes it. An item
    /// that is missing is inserted where its path says, or at the end of that list. False when there is no
    /// such list.
    bool replace(std::string_view path, const std::optional<std::string>& text);
    /// Inserts the lines of a text before the item with that path, or at the end of that list. False when
    /// there is no such list.
    bool insert(std::string_view path, const std::string& text);
    /// Moves an item with all below it to a position of its list, from 1. False when one of them is missing.
    bool move(std::string_view path, std::size_t position);
    /// Replaces all items.
    void replaceAll(std::string_view text);

    ItemTree tree() const;

private:
    struct Line {
        std::size_t depth; ///< 1 for a direct item
        std::string text;  ///< with a mark instead of a count that follows
    };
    bool put(std::string_view path, const std::optional<std::string>& text, bool replaces);
    static std::vector<Line> read(std::string_view text, std::size_t depth);

    const ItemTree& before_;
    std::vector<Line> lines_; // of the nodes from 1 on
};

} // namespace zb
