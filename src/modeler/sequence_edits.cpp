#include "modeler/sequence_edits.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace zb {

namespace {

/// A row of the edited list, and whether the edit is about it.
struct TakenRow {
    MarkedRow row;
    bool taken = false;
};
using TakenRows = std::vector<TakenRow>;

/// The rows before the first head, or a head with its items.
struct Block {
    TakenRows rows;
    bool isSequence = false;
    bool taken = false;
};

std::vector<Block> blocksOf(SequenceRows rows, const RowPlaces& places) {
    std::vector<Block> blocks;
    auto place = places.begin();
    for (std::size_t at = 0; at < rows.size(); ++at) {
        const bool taken = place != places.end() && *place == at;
        if (taken)
            ++place;
        const bool head = rows[at].row.isHead();
        if (head || blocks.empty())
            blocks.push_back({{}, head, head && taken});
        blocks.back().rows.push_back({std::move(rows[at]), taken});
    }
    return blocks;
}

bool takesSequences(const std::vector<Block>& blocks) {
    return std::any_of(blocks.begin(), blocks.end(), [](const Block& block) { return block.taken; });
}

SequenceEdit editOf(std::vector<Block> blocks) {
    const bool sequences = takesSequences(blocks);
    SequenceEdit edit;
    for (Block& block : blocks) {
        for (TakenRow& row : block.rows) {
            const bool selected = sequences ? row.row.row.isHead() && block.taken : row.taken;
            if (selected)
                edit.selected.push_back(edit.rows.size());
            edit.rows.push_back(std::move(row.row));
        }
    }
    // Rows that no head comes before are kept as a damaged file has them.
    int ordinal = -1;
    for (MarkedRow& row : edit.rows) {
        if (row.row.isHead())
            ordinal = 0;
        else if (ordinal >= 0)
            row.row.text = std::to_string(++ordinal);
    }
    return edit;
}

std::optional<SequenceEdit> unlessSame(SequenceEdit edit, const SequenceRows& before) {
    return edit.rows == before ? std::nullopt : std::optional(std::move(edit));
}

/// Lets each taken member change places with its neighbour, unless that is taken too.
template<typename Members, typename MaySwap>
void step(Members& members, Step way, MaySwap maySwap) {
    const auto pass = [&](std::size_t from, std::size_t to) {
        if (members[from].taken && !members[to].taken && maySwap(members[to], to))
            std::swap(members[from], members[to]);
    };
    if (way == Step::Up) {
        for (std::size_t at = 1; at < members.size(); ++at)
            pass(at, at - 1);
    } else {
        for (std::size_t at = members.size(); at-- > 1;)
            pass(at - 1, at);
    }
}

TakenRows flat(std::vector<Block> blocks) {
    TakenRows rows;
    for (Block& block : blocks)
        std::move(block.rows.begin(), block.rows.end(), std::back_inserter(rows));
    return rows;
}

std::vector<Block> blocksOf(TakenRows rows) {
    SequenceRows plain;
    RowPlaces places;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (rows[at].taken)
            places.push_back(at);
        plain.push_back(std::move(rows[at].row));
    }
    return blocksOf(std::move(plain), places);
}

std::unordered_set<std::string> namesOf(const std::vector<Block>& blocks) {
    std::unordered_set<std::string> names;
    for (const Block& block : blocks) {
        if (block.isSequence)
            names.insert(block.rows.front().row.row.text);
    }
    return names;
}

/// "StartUp_2", or the next number that is free.
std::string freeName(const std::unordered_set<std::string>& used, const std::string& name) {
    int number = 2;
    while (used.contains(name + "_" + std::to_string(number)))
        ++number;
    return name + "_" + std::to_string(number);
}

std::optional<std::vector<Block>> sequencesPutAfter(std::vector<Block> blocks, std::size_t target, Put put) {
    std::size_t row = 0;
    std::size_t into = 0;
    while (into < blocks.size() && target >= row + blocks[into].rows.size())
        row += blocks[into++].rows.size();
    if (into == blocks.size() || (put == Put::Moved && blocks[into].taken))
        return std::nullopt;
    const std::unordered_set<std::string> names =
        put == Put::Copied ? namesOf(blocks) : std::unordered_set<std::string>();
    std::vector<Block> arriving;
    std::vector<Block> result;
    for (Block& block : blocks) {
        if (!block.taken)
            continue;
        arriving.push_back(block);
        if (put == Put::Copied) {
            std::string& name = arriving.back().rows.front().row.row.text;
            name = freeName(names, name);
            block.taken = false;
        }
    }
    for (std::size_t at = 0; at < blocks.size(); ++at) {
        if (!blocks[at].taken)
            result.push_back(std::move(blocks[at]));
        if (at == into)
            std::move(arriving.begin(), arriving.end(), std::back_inserter(result));
    }
    return result;
}

std::optional<TakenRows> itemsPutAfter(TakenRows rows, std::size_t target, Put put) {
    if (target >= rows.size() || (put == Put::Moved && rows[target].taken))
        return std::nullopt;
    TakenRows items;
    TakenRows result;
    for (TakenRow& row : rows) {
        if (!row.taken)
            continue;
        items.push_back(row);
        row.taken = put == Put::Moved;
    }
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (!rows[at].taken)
            result.push_back(std::move(rows[at]));
        if (at == target)
            std::move(items.begin(), items.end(), std::back_inserter(result));
    }
    return result;
}

} // namespace

std::optional<SequenceEdit> rowsMoved(const SequenceRows& rows, const RowPlaces& places, Step way) {
    std::vector<Block> blocks = blocksOf(SequenceRows(rows), places);
    if (takesSequences(blocks)) {
        step(blocks, way, [](const Block& other, std::size_t) { return other.isSequence; });
        return unlessSame(editOf(std::move(blocks)), rows);
    }
    TakenRows items = flat(std::move(blocks));
    // The first head stays the first: an item needs a head before it.
    step(items, way, [](const TakenRow& other, std::size_t at) { return at > 0 || !other.row.row.isHead(); });
    return unlessSame(editOf(blocksOf(std::move(items))), rows);
}

std::optional<SequenceEdit> rowsPutAfter(const SequenceRows& rows, const RowPlaces& places,
                                         std::size_t target, Put put) {
    if (places.empty())
        return std::nullopt;
    std::vector<Block> blocks = blocksOf(SequenceRows(rows), places);
    if (takesSequences(blocks)) {
        auto moved = sequencesPutAfter(std::move(blocks), target, put);
        return moved ? unlessSame(editOf(std::move(*moved)), rows) : std::nullopt;
    }
    auto moved = itemsPutAfter(flat(std::move(blocks)), target, put);
    return moved ? unlessSame(editOf(blocksOf(std::move(*moved))), rows) : std::nullopt;
}

std::optional<SequenceEdit> rowsRemoved(SequenceRows rows, const RowPlaces& places) {
    if (places.empty())
        return std::nullopt;
    const std::size_t first = places.front();
    std::vector<Block> blocks = blocksOf(std::move(rows), places);
    std::erase_if(blocks, [](const Block& block) { return block.taken; });
    for (Block& block : blocks)
        std::erase_if(block.rows, [](const TakenRow& row) { return row.taken; });
    SequenceEdit edit = editOf(std::move(blocks));
    // What comes after the removed rows can be removed next.
    if (!edit.rows.empty())
        edit.selected = {std::min(first, edit.rows.size() - 1)};
    return edit;
}

} // namespace zb
