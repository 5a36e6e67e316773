#include "lint/item_rules.h"

#include "lint/rule.h"
#include "lint/rule_context.h"
#include "lint/value_fit.h"
#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zb {

namespace {

/// Names that are ordinary words: within a message of the user's own they can mean anything.
constexpr std::array<std::string_view, 26> kPlainWords{
    "ABS",       "AGENT",  "GRANT", "HANDLE", "LENGTH", "LOC",   "MF",  "TEXT",  "TIME",
    "TIMESTAMP", "UNITS",  "V",     "SV",     "QUA",    "TTC",   "TID", "PNAME", "CNAME",
    "MID",       "EQNAME", "PMAX",  "RESC",   "REFP",   "IDTYP", "SPD", "EPD"};

/// The published item that an item of the message is; null for an item of the user's own. Where a place may
/// hold any value, such as the variables of a report, a name says nothing.
const PublishedItem* publishedItem(const MessageContext& context, std::size_t at, std::string_view& name) {
    if (context.published != nullptr) {
        name = context.match.expected[at];
        return context.standard.item(name);
    }
    const std::string& own = context.message.items[at].record.getName();
    name = context.standard.itemOf(own);
    const bool isPlain = std::find(kPlainWords.begin(), kPlainWords.end(), name) != kPlainWords.end();
    return isPlain ? nullptr : context.standard.item(name);
}

/// Calls `visit` with each item that is no list, what is published of it, and its published name.
template<typename Visit>
void visitPublishedItems(const MessageContext& context, Visit visit) {
    for (std::size_t at = 0; at < context.message.items.size(); ++at) {
        const CheckedItem& item = context.message.items[at];
        std::string_view name;
        const PublishedItem* published = publishedItem(context, at, name);
        const ItemKind kind = itemKind(item.record.getType());
        if (published != nullptr && kind != ItemKind::List && kind != ItemKind::Unknown)
            visit(item, *published, name);
    }
}

std::string listed(const std::vector<std::string_view>& formats) {
    std::string text;
    for (std::size_t at = 0; at < formats.size(); ++at) {
        if (at > 0)
            text += at + 1 == formats.size() ? " or " : ", ";
        text += formats[at];
    }
    return text;
}

/// "0, 1, 2" from codes with their meanings.
std::string codeList(const PublishedItem& item) {
    std::string text;
    for (const std::string_view code : item.codes)
        text.append(text.empty() ? "" : ", ").append(before(code, " "));
    return text;
}

bool fitsFormat(const PublishedItem& published, const CheckedItem& item) {
    return item.record.getType() == "X" || mayHaveFormat(published, item.record.getType());
}

/// Whether a name is another one with a slip: two letters exchanged, one wrong, or one left out. Additions,
/// as in "ALIDS" or "ALID_1", are meant.
bool isSlipOf(std::string_view name, std::string_view known) {
    const auto [own, other] = std::mismatch(name.begin(), name.end(), known.begin(), known.end());
    const auto at = static_cast<std::size_t>(own - name.begin());
    if (known.size() < 4 || at == name.size())
        return false;
    if (name.size() + 1 == known.size())
        return at > 0 && known.size() > 4 && name.substr(at) == known.substr(at + 1);
    if (name.size() != known.size())
        return false;
    const bool isExchanged = at + 1 < name.size() && name[at] == known[at + 1] && name[at + 1] == known[at] &&
                             name.substr(at + 2) == known.substr(at + 2);
    return isExchanged || (at > 0 && name.substr(at + 1) == known.substr(at + 1));
}

} // namespace

void checkStructure(const MessageContext& context, Report& report) {
    for (const LayoutMatch::Difference& difference : context.match.differences)
        report.tell(difference.item ? context.message.place(context.message.items[*difference.item])
                                    : context.message.place(),
                    difference.text);
}

void checkItemFormats(const MessageContext& context, Report& report) {
    visitPublishedItems(context,
                        [&](const CheckedItem& item, const PublishedItem& published, std::string_view name) {
                            if (!fitsFormat(published, item))
                                report.tell(context.message.place(item),
                                            std::string(name) + " may be " + listed(published.formats) +
                                                ", and is " + item.record.getType());
                        });
}

void checkItemLengths(const MessageContext& context, Report& report) {
    visitPublishedItems(
        context, [&](const CheckedItem& item, const PublishedItem& published, std::string_view name) {
            if (published.longest == 0 || item.record.getCount() <= published.longest)
                return;
            const bool isText = itemKind(item.record.getType()) == ItemKind::Quoted;
            report.tell(context.message.place(item), std::string(name) + " has at most " +
                                                         std::to_string(published.longest) +
                                                         (isText ? " characters, and " : " values, and ") +
                                                         std::to_string(item.record.getCount()) + " here");
        });
}

void checkItemCodes(const MessageContext& context, Report& report) {
    visitUnknownCodes(context, [&](const CheckedItem& item, std::string text) {
        report.tell(context.message.place(item), std::move(text));
    });
}

void visitUnknownCodes(const MessageContext& context,
                       const std::function<void(const CheckedItem& item, std::string text)>& visit) {
    visitPublishedItems(
        context, [&](const CheckedItem& item, const PublishedItem& published, std::string_view name) {
            const std::string& type = item.record.getType();
            // What does not fit into its type is reported for that.
            if (published.codes.empty() || type == "X" || type == "BOOLEAN" || !fitsFormat(published, item) ||
                rangeFault(item.record))
                return;
            const bool isText = itemKind(type) == ItemKind::Quoted;
            const std::vector<std::string> values =
                isText ? std::vector{item.record.getValue()} : splitAtBlanks(item.record.getValue());
            for (const std::string& value : values) {
                // What is no number is a fault of the definition.
                if ((!isText && !isNumeric(value)) || isKnownCode(published, value))
                    continue;
                visit(item, trim(value) + " is no code of " + std::string(name) + ": " + codeList(published));
                return;
            }
        });
}

void checkItemNames(const MessageContext& context, Report& report) {
    if (context.published == nullptr)
        return;
    for (std::size_t at = 0; at < context.message.items.size(); ++at) {
        const CheckedItem& item = context.message.items[at];
        const std::string_view expected = context.match.expected[at];
        const std::string& name = item.record.getName();
        if (expected.empty() || name.empty() || !context.standard.itemOf(name).empty())
            continue;
        if (isSlipOf(upper(name), expected))
            report.tell(context.message.place(item),
                        "\"" + name + "\" is probably meant to be " + std::string(expected));
    }
}

} // namespace zb
