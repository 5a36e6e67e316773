#include "lint/transaction_rules.h"

#include "lint/item_rules.h"
#include "lint/rule.h"
#include "lint/rule_context.h"
#include "lint/value_fit.h"
#include "model/tr_message_record.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace zb {

namespace {

FindingPlace placeIn(const TRMessageContext& context, const CheckedItem& item) {
    return FindingPlace::inTRMessage(context.record.Name(), item.path);
}

/// Its name in quotation marks, or "an item of type L" when it has none.
std::string called(const SECSItemRecord& item, const char* article) {
    return item.getName().empty() ? article + (" item of type " + item.getType())
                                  : "\"" + item.getName() + "\"";
}

/// Compares a data block with the definition that it is a copy of. The copy has chosen counts of the lists.
class BlockComparer {
public:
    BlockComparer(const CheckedMessage& definition, const CheckedMessage& block)
        : definition_(definition), block_(block) {}

    struct Difference {
        const CheckedItem* item; ///< of the data block; null for the whole
        std::string text;
    };

    std::optional<Difference> run() {
        if (block_.topLevel.size() != definition_.topLevel.size())
            return Difference{nullptr, "The data block and the SECS message have different items"};
        // Pairs of items that are still to be compared; the first is the last one.
        for (std::size_t at = block_.topLevel.size(); at-- > 0;)
            open_.emplace_back(definition_.topLevel[at], block_.topLevel[at]);
        while (!open_.empty()) {
            const auto [expected, found] = open_.back();
            open_.pop_back();
            if (auto text = difference(definition_.items[expected], block_.items[found]); !text.empty())
                return Difference{&block_.items[found], std::move(text)};
        }
        return std::nullopt;
    }

private:
    bool isKnownName(const std::string& name) const {
        return std::any_of(definition_.items.begin(), definition_.items.end(),
                           [&](const CheckedItem& item) { return item.record.getName() == name; });
    }

    std::string difference(const CheckedItem& expected, const CheckedItem& found) {
        const SECSItemRecord& wanted = expected.record;
        const SECSItemRecord& own = found.record;
        if (wanted.getName() != own.getName()) {
            // A name that the definition does not have is a fault of its own.
            const bool isElsewhere = own.getName().empty() || isKnownName(own.getName());
            return isElsewhere ? called(own, "An") + " is in the place of " + called(wanted, "an")
                               : std::string();
        }
        if (wanted.getType() == "X")
            return {};
        if (wanted.getType() != own.getType())
            return "The item is " + own.getType() + " here and " + wanted.getType() + " in the SECS message";
        if (expected.isList())
            return listDifference(expected, found);
        const bool fits =
            wanted.isFixed() ? own.getCount() == wanted.getCount() : own.getCount() <= wanted.getCount();
        return fits ? std::string()
                    : "The count is " + std::to_string(own.getCount()) + " here and " +
                          std::to_string(wanted.getCount()) + " in the SECS message";
    }

    std::string listDifference(const CheckedItem& expected, const CheckedItem& found) {
        const bool isFixed = expected.record.isFixed();
        if (isFixed && expected.children.size() != found.children.size())
            return "The list has " + std::to_string(found.children.size()) + " items here and " +
                   std::to_string(expected.children.size()) + " in the SECS message";
        if (expected.children.empty())
            return {};
        for (std::size_t at = found.children.size(); at-- > 0;)
            open_.emplace_back(expected.children[isFixed ? at : 0], found.children[at]);
        return {};
    }

    const CheckedMessage& definition_;
    const CheckedMessage& block_;
    std::vector<std::pair<std::size_t, std::size_t>> open_;
};

/// Calls `visit` with the data block of a sent message, when there is one.
template<typename Visit>
void visitBlock(const TRMessageContext& context, Visit visit) {
    if (!context.isReceived && context.record.DataBlock())
        visit(CheckedMessage::of(*context.record.DataBlock()));
}

} // namespace

void checkBlockFit(const TRMessageContext& context, Report& report) {
    visitBlock(context, [&](const CheckedMessage& block) {
        // Another stream or function is a fault of its own.
        if (block.stream != context.definition.stream || block.function != context.definition.function)
            return;
        if (const auto difference = BlockComparer(context.definition, block).run())
            report.tell(difference->item != nullptr ? placeIn(context, *difference->item)
                                                    : FindingPlace::inTRMessage(context.record.Name(), {}),
                        difference->text);
    });
}

void checkBlockCodes(const TRMessageContext& context, Report& report) {
    visitBlock(context, [&](const CheckedMessage& block) {
        const PublishedStandard& standard = context.model.standard;
        const auto* published = standard.message(block.stream, block.function);
        LayoutMatch match;
        match.expected.resize(block.items.size());
        if (published != nullptr)
            match = matchLayout(block, *published, standard);
        const MessageIndex none;
        const MessageContext all{block, none, standard, context.model.codePage, published, std::move(match)};
        visitUnknownCodes(all, [&](const CheckedItem& item, std::string text) {
            // Where the value is that of the SECS message, it is reported there.
            const auto& defined = context.definition.items;
            const bool isDefined = std::any_of(defined.begin(), defined.end(), [&](const CheckedItem& other) {
                return other.path == item.path && other.record.getValue() == item.record.getValue();
            });
            if (!isDefined)
                report.tell(placeIn(context, item), std::move(text));
        });
    });
}

void checkBlockRanges(const TRMessageContext& context, Report& report) {
    visitBlock(context, [&](const CheckedMessage& block) {
        for (const CheckedItem& item : block.items)
            if (const auto fault = rangeFault(item.record))
                report.tell(placeIn(context, item), *fault);
    });
}

void checkBlockLengths(const TRMessageContext& context, Report& report) {
    visitBlock(context, [&](const CheckedMessage& block) {
        for (const CheckedItem& item : block.items)
            if (const auto fault = lengthFault(item.record, context.model.codePage))
                report.tell(placeIn(context, item), *fault);
    });
}

void checkBlockKey(const TRMessageContext& context, Report& report) {
    visitBlock(context, [&](const CheckedMessage& block) {
        const CheckedItem* key = context.definition.key();
        if (key == nullptr || block.key() != nullptr || context.definition.variableListsAround(*key) > 0)
            return;
        const auto found = std::find_if(block.items.begin(), block.items.end(), [&](const CheckedItem& item) {
            return item.path == key->path && item.record.getName() == key->record.getName();
        });
        if (found != block.items.end())
            report.tell(placeIn(context, *found),
                        "This item is the key of the SECS message, and has no key mark in the data block");
    });
}

} // namespace zb
