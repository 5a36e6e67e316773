#include "compare/compatibility.h"

#include "compare/project_parts.h"
#include "messages/item_record.h"
#include "platform/text.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_map>

namespace zb {

namespace {

/// Sides as bits.
enum Sides : unsigned { Nobody = 0, HostSide = 1, EquipmentSide = 2, BothSides = 3 };

Sides operator|(Sides one, Sides other) {
    return static_cast<Sides>(static_cast<unsigned>(one) | static_cast<unsigned>(other));
}

Sides sendersOf(std::string_view direction) {
    if (direction == "H->E")
        return HostSide;
    return direction == "H<-E" ? EquipmentSide : BothSides;
}

Sides receiversOf(std::string_view direction) {
    if (direction == "H->E")
        return EquipmentSide;
    return direction == "H<-E" ? HostSide : BothSides;
}

Compatibility effectOf(Sides broken) {
    switch (broken) {
    case HostSide:
        return Compatibility::BreaksHost;
    case EquipmentSide:
        return Compatibility::BreaksEquipment;
    case BothSides:
        return Compatibility::BreaksBoth;
    default:
        return Compatibility::None;
    }
}

struct Judgement {
    Compatibility effect = Compatibility::None;
    std::string_view rule;
    std::string_view reason;
};

/// How many values an item has, or at most has.
struct Count {
    explicit Count(const std::string& line) {
        SECSItemRecord item;
        item.parseText(line);
        number = item.getCount();
        isFixed = item.isFixed();
    }
    int number = 0;
    bool isFixed = true;

    /// Whether whoever takes this count takes all that has the other one.
    bool takes(const Count& other) const {
        if (isFixed)
            return other.isFixed && other.number == number;
        return other.number <= number;
    }
};

bool isKey(const std::string& line) {
    SECSItemRecord item;
    item.parseText(line);
    return item.isKey();
}

/// The head of a message in both projects.
struct Heads {
    std::string directionBefore;
    std::string directionAfter;
    bool isPrimary = true;

    /// A side that still sends as before.
    Sides oldSenders() const { return sendersOf(directionBefore); }
    /// A side that still receives as before, and gets what is new.
    Sides oldReceivers() const { return receiversOf(directionAfter); }
};

Judgement judgeDirection(const Difference& difference) {
    const Sides lost = static_cast<Sides>(sendersOf(difference.before.value_or("")) &
                                          ~static_cast<unsigned>(sendersOf(difference.after.value_or(""))));
    if (lost == Nobody)
        return {Compatibility::Extension, "compat.direction.wider", "One more side may send the message"};
    return {Compatibility::BreaksBoth, "compat.direction",
            "A side that sends the message is refused, and the other one waits for it in vain"};
}

Judgement judgeHead(const Difference& difference, const Heads& heads) {
    if (difference.field == "stream" || difference.field == "function")
        return {Compatibility::BreaksBoth, "compat.number",
                "The old stream and function are no longer known, and the new ones not yet"};
    if (difference.field == "direction")
        return judgeDirection(difference);
    if (difference.field == "head")
        return {Compatibility::BreaksBoth, "compat.head",
                "The head cannot be understood in one of the projects"};
    if (difference.field != "wait" || !heads.isPrimary)
        return {};
    if (difference.after == "true")
        return {effectOf(heads.oldReceivers()), "compat.wait.added",
                "The sender now waits for a reply that the receiver does not give"};
    return {effectOf(heads.oldSenders()), "compat.wait.removed",
            "The sender waits for a reply that the receiver no longer gives"};
}

Judgement judgeCount(const Difference& difference, const Heads& heads) {
    const Count before(difference.lineBefore);
    const Count after(difference.lineAfter);
    const bool isLarger = !before.isFixed && !after.isFixed && after.number > before.number;
    if (isLarger)
        return {Compatibility::Extension, "compat.count.larger", "The item may have more values"};
    const Sides senders = after.takes(before) ? Nobody : heads.oldSenders();
    const Sides receivers = before.takes(after) ? Nobody : heads.oldReceivers();
    return {effectOf(senders | receivers), "compat.count",
            "One side sends a number of values that the other does not take"};
}

constexpr const char* kAnyFormat = "X";

/// Whoever takes any format takes each single one as well.
Judgement judgeType(const Difference& difference, const Heads& heads) {
    constexpr const char* kReason = "One side sends a format that the other does not take";
    if (difference.before == kAnyFormat)
        return {effectOf(heads.oldSenders()), "compat.type", kReason};
    if (difference.after == kAnyFormat)
        return {effectOf(heads.oldReceivers()), "compat.type", kReason};
    return {Compatibility::BreaksBoth, "compat.type", "The other side has another format"};
}

/// The digits of an integer, without sign and zeros in front of them; nothing for any other text.
std::string_view digitsOf(std::string_view token) {
    if (token.starts_with('+') || token.starts_with('-'))
        token.remove_prefix(1);
    if (token.empty() || token.find_first_not_of("0123456789") != std::string_view::npos)
        return {};
    return token.substr(std::min(token.find_first_not_of('0'), token.size() - 1));
}

/// Integers may be written in several ways.
bool isSameValue(const Difference& difference) {
    SECSItemRecord item;
    item.parseText(difference.lineAfter);
    const std::string type = item.getType();
    if (!type.starts_with('U') && !type.starts_with('I') && type != "B")
        return false;
    std::string_view before = trimmed(*difference.before);
    std::string_view after = trimmed(*difference.after);
    while (!before.empty() && !after.empty()) {
        const std::string_view one = takeWord(before);
        const std::string_view other = takeWord(after);
        const bool sameSign = one.starts_with('-') == other.starts_with('-');
        if (one != other && (digitsOf(one).empty() || digitsOf(one) != digitsOf(other) || !sameSign))
            return false;
    }
    return before.empty() && after.empty();
}

Judgement judgeItem(const Difference& difference, const Heads& heads) {
    const bool wasKey = isKey(difference.lineBefore);
    const bool isNowKey = isKey(difference.lineAfter);
    switch (difference.change) {
    case ChangeKind::Added:
        return {Compatibility::BreaksBoth, "compat.item.added", "The other side has one item fewer"};
    case ChangeKind::Removed:
        return {Compatibility::BreaksBoth, "compat.item.removed", "The other side has one item more"};
    case ChangeKind::Moved:
        return {Compatibility::BreaksBoth, "compat.item.order",
                "The other side has the items in another order"};
    case ChangeKind::Renamed:
        return {};
    case ChangeKind::Changed:
        break;
    }
    if (difference.field == "type")
        return judgeType(difference, heads);
    if (difference.field == "count")
        return judgeCount(difference, heads);
    if (difference.field == "value" && (wasKey || isNowKey) && !isSameValue(difference))
        return {Compatibility::BreaksBoth, "compat.key.value",
                "The message is recognised by the value, and the other side has another one"};
    if (difference.field == "key" && isNowKey)
        return {effectOf(heads.oldSenders()), "compat.key.added",
                "The receiver recognises the message by a value that the sender need not send"};
    if (difference.field == "key")
        return {effectOf(heads.oldReceivers()), "compat.key.removed",
                "The sender may send other values than the one by which the receiver recognises the message"};
    return {};
}

/// A message as it is on the wire: without names, descriptions and what is local to a side.
std::string wireForm(const Entry& message) {
    std::string form;
    for (const char* field : {"stream", "function", "wait", "direction", "head"})
        form.append(message.stored(field)).append(1, '\0');
    for (std::size_t node = 1; node < message.items.count(); ++node) {
        SECSItemRecord item;
        item.parseText(message.items.at(node).text);
        form.append(std::to_string(message.items.at(node).depth))
            .append(" ")
            .append(item.getType())
            .append(" ");
        form.append(std::to_string(item.getCount())).append(item.isFixed() ? "" : "V");
        form.append(item.isKey() ? " " + item.getValue() : std::string()).append(1, '\0');
    }
    return form;
}

/// Finds messages of a project by their names.
class MessageFinder {
public:
    explicit MessageFinder(const Project& project) : parts_(project) {
        for (const Block& block : blocks())
            byName_.emplace(block.name, &block);
    }

    std::optional<Entry> find(const std::string& name) const {
        const auto found = byName_.find(name);
        return found == byName_.end() ? std::nullopt : std::optional(messageForm().read(found->second->text));
    }

    /// Whether any message but one of this name is the same on the wire.
    bool hasOnWire(const Entry& message, std::string_view exceptName) const {
        if (onWire_.empty()) {
            for (const Block& block : blocks())
                onWire_.emplace(wireForm(messageForm().read(block.text)), block.name);
        }
        const auto [first, last] = onWire_.equal_range(wireForm(message));
        return std::any_of(first, last, [&](const auto& known) { return known.second != exceptName; });
    }

private:
    const Blocks& blocks() const { return parts_.blocks(ProjectParts::Messages); }

    ProjectParts parts_;
    std::unordered_map<std::string_view, const Block*> byName_;
    mutable std::unordered_multimap<std::string, std::string_view> onWire_; ///< names by wire forms
};

class Judge {
public:
    Judge(const Project& before, const Project& after) : before_(before), after_(after) {}

    Judgement judge(const Difference& difference) {
        const bool isMessage = difference.kind == PartKind::Message;
        if (!isMessage && difference.kind != PartKind::Item)
            return {};
        Judgement judgement =
            isMessage ? judgeMessage(difference) : judgeItem(difference, headsOf(difference));
        const bool breaks = breaksHost(judgement.effect) || breaksEquipment(judgement.effect);
        if (breaks && isKept(difference))
            judgement = {Compatibility::None, judgement.rule, "Another message is the same on the wire"};
        return judgement;
    }

private:
    Judgement judgeMessage(const Difference& difference) {
        switch (difference.change) {
        case ChangeKind::Added:
            return {Compatibility::Extension, "compat.message.added", "The message is new"};
        case ChangeKind::Removed:
            return {Compatibility::BreaksBoth, "compat.message.removed",
                    "A side that sends the message is refused, and the other one waits for it in vain"};
        case ChangeKind::Changed:
            return judgeHead(difference, headsOf(difference));
        default:
            return {};
        }
    }

    const Heads& headsOf(const Difference& difference) {
        const auto [known, isNew] =
            heads_.try_emplace(difference.placeBefore.name + '\0' + difference.place.name);
        if (isNew) {
            const auto before = before_.find(difference.placeBefore.name);
            const auto after = after_.find(difference.place.name);
            const std::string function(before ? before->stored("function") : std::string_view());
            known->second.directionBefore = before ? before->stored("direction") : std::string_view();
            known->second.directionAfter = after ? after->stored("direction") : std::string_view();
            known->second.isPrimary = function.empty() || (function.back() - '0') % 2 != 0;
        }
        return known->second;
    }

    /// Whether another message is now what this one was. Its own new form does not count: with the same items
    /// in another order it looks the same, and means something else.
    bool isKept(const Difference& difference) {
        const bool isRemoved =
            difference.change == ChangeKind::Removed && difference.kind == PartKind::Message;
        const std::string& own = difference.place.name;
        const auto [known, isNew] = kept_.try_emplace(difference.placeBefore.name + '\0' + own, false);
        if (!isNew)
            return known->second;
        if (const auto message = before_.find(difference.placeBefore.name); message)
            known->second = after_.hasOnWire(*message, isRemoved ? std::string_view("\n") : own);
        return known->second;
    }

    MessageFinder before_;
    MessageFinder after_;
    std::unordered_map<std::string, Heads> heads_;
    std::unordered_map<std::string, bool> kept_;
};

} // namespace

std::vector<CompatibilityFinding> judgeCompatibility(const Project& before, const Project& after,
                                                     const Differences& differences) {
    Judge judge(before, after);
    std::vector<CompatibilityFinding> findings;
    for (const Difference& difference : differences) {
        const Judgement judgement = judge.judge(difference);
        findings.push_back({difference, judgement.effect, judgement.rule, judgement.reason});
    }
    return findings;
}

bool breaksHost(Compatibility effect) {
    return effect == Compatibility::BreaksHost || effect == Compatibility::BreaksBoth;
}

bool breaksEquipment(Compatibility effect) {
    return effect == Compatibility::BreaksEquipment || effect == Compatibility::BreaksBoth;
}

std::string_view wordOf(Compatibility effect) {
    switch (effect) {
    case Compatibility::Extension:
        return "extension";
    case Compatibility::BreaksHost:
        return "breaking for the host";
    case Compatibility::BreaksEquipment:
        return "breaking for the equipment";
    case Compatibility::BreaksBoth:
        return "breaking for both";
    case Compatibility::None:
        break;
    }
    return "none";
}

} // namespace zb
