#include "editor/marked_changes.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "editor/name_pattern.h"
#include "editor/step_names.h"
#include "messages/item_names.h"
#include "messages/item_record.h"
#include "messages/message_nodes.h"
#include "messages/message_record.h"
#include "platform/number.h"
#include "platform/text.h"
#include "platform/wildcard.h"

#include <algorithm>
#include <map>
#include <set>

namespace zb {

namespace {

SECSMessageRecord recordOf(const Node& message) {
    SECSMessageRecord record;
    record.parseNodeText(message.text(), message.previous() == nullptr ? "" : message.previous()->text());
    return record;
}

std::string headOf(const SECSMessageRecord& record, bool wait, bool reply, bool noLogging,
                   std::string_view direction) {
    std::string text = std::string(record.getName()) + ": " + record.getNumbersText(" ");
    for (const auto& [set, word] : {std::pair{wait, " W"}, {reply, " <R>"}, {noLogging, " <NL>"}}) {
        if (set)
            text += word;
    }
    return text + " " + std::string(direction);
}

bool isPrimary(const SECSMessageRecord& record) {
    return record.getFunction() % 2 != 0;
}

std::string plural(std::size_t count, const std::string& word) {
    return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

std::string refusalOf(const std::string& name) {
    if (name.empty())
        return "the name is empty";
    if (hasColon(name) || name.find_first_of(" \t\r\n'<>*") != std::string::npos)
        return "the name has a character that no name may have";
    return isNumeric(name) ? "the name is a number" : "";
}

} // namespace

std::vector<Node*> MarkedChanges::targets() const {
    std::vector<Node*> found = window_.markedNodes.units();
    Node* selected = window_.liveTree().selected();
    Node* unit = found.empty() && selected != nullptr ? unitOf(*selected) : nullptr;
    if (unit != nullptr)
        found.push_back(unit);
    return found;
}

void MarkedChanges::changeMessages(const std::string& step, const Change& change) {
    std::size_t changed = 0;
    std::size_t left = 0;
    for (Node* message : targets()) {
        if (message->parent() != nullptr)
            return;
        std::string text = message->text();
        if (!change(recordOf(*message), text)) {
            ++left;
        } else if (text != message->text()) {
            window_.desktop().steps().name(step);
            message->setText(std::move(text));
            ++changed;
        }
    }
    if (changed > 0)
        showAgain();
    if (left > 0)
        window_.desktop().post({plural(changed, "message") + " changed; " + plural(left, "message") +
                                    " with an even function left",
                                {}});
}

void MarkedChanges::setDirection(std::string_view direction) {
    changeMessages("Change direction", [direction](const SECSMessageRecord& record, std::string& text) {
        text = headOf(record, record.getWait(), record.getReply(), record.getNoLogging(), direction);
        return true;
    });
}

void MarkedChanges::setFlag(Flag flag, bool on) {
    const char* name = flag == Flag::Wait    ? "Change Wait"
                       : flag == Flag::Reply ? "Change Auto Reply"
                                             : "Change No Logging";
    changeMessages(name, [flag, on](const SECSMessageRecord& record, std::string& text) {
        if (flag != Flag::NoLogging && !isPrimary(record))
            return false;
        text = headOf(record, flag == Flag::Wait ? on : record.getWait(),
                      flag == Flag::Reply ? on : record.getReply(),
                      flag == Flag::NoLogging ? on : record.getNoLogging(), record.getDirection());
        return true;
    });
}

std::vector<MarkedChanges::Renamed> MarkedChanges::preview(std::string_view pattern) const {
    std::vector<Renamed> names;
    for (Node* node : targets()) {
        NameParts parts;
        if (node->parent() == nullptr) {
            const SECSMessageRecord record = recordOf(*node);
            parts = {trim(nameInText(node->text())),
                     std::string(record.getStreamText()),
                     std::string(record.getFunctionText()),
                     {}};
        } else {
            SECSItemRecord record;
            record.parseText(node->text());
            parts = {trim(record.getName()), {}, {}, record.getType()};
        }
        const auto made = nameByPattern(pattern, parts);
        std::string refusal = made ? refusalOf(*made) : "the pattern has an unknown word in braces";
        names.push_back({node, parts.name, made.value_or(std::string()), std::move(refusal)});
    }
    if (!names.empty() && names.front().node->parent() == nullptr)
        checkMessages(names);
    else
        checkItems(names);
    return names;
}

void MarkedChanges::checkMessages(std::vector<Renamed>& names) const {
    std::set<const Node*> renamed;
    for (const Renamed& name : names)
        renamed.insert(name.node);
    std::map<std::string, int> given;
    for (const Renamed& name : names)
        ++given[upper(name.newName)];
    for (Renamed& name : names) {
        const Node* holder = window_.liveTree().find(name.newName);
        const bool isTaken = holder != nullptr && !renamed.contains(holder);
        if (name.refusal.empty() && (isTaken || given[upper(name.newName)] > 1))
            name.refusal = "another message has the name " + name.newName;
    }
}

void MarkedChanges::checkItems(std::vector<Renamed>& names) const {
    std::map<std::string, int> held;
    if (!names.empty()) {
        const Node& root = rootOf(*names.front().node);
        std::vector<const Node*> open{&root};
        while (!open.empty()) {
            const Node* node = open.back();
            open.pop_back();
            if (node != &root)
                ++held[std::string(itemNameInText(node->text()))];
            for (const Node* child = node->child(); child != nullptr; child = child->next())
                open.push_back(child);
        }
    }
    for (const Renamed& name : names) {
        --held[name.oldName];
        ++held[name.newName];
    }
    for (Renamed& name : names) {
        if (name.refusal.empty() && held[name.newName] > 1)
            name.refusal = "another item of the message has the name " + name.newName;
    }
}

std::string MarkedChanges::rename(std::string_view pattern) {
    std::vector<Renamed> names = preview(pattern);
    for (const Renamed& name : names) {
        if (!name.refusal.empty())
            return name.oldName + ": " + name.refusal;
    }
    std::erase_if(names, [](const Renamed& name) { return name.newName == name.oldName; });
    if (names.empty())
        return {};
    const bool messages = names.front().node->parent() == nullptr;
    window_.desktop().steps().name("Rename " + plural(names.size(), messages ? "message" : "item"));
    if (messages) {
        renameMessages(names);
    } else {
        for (const Renamed& name : names)
            renameItem(*name.node, name);
    }
    showAgain();
    return {};
}

// Names may change places, so that all are given up before the first is given.
void MarkedChanges::renameMessages(const std::vector<Renamed>& names) {
    NodeTree& tree = window_.liveTree();
    std::vector<std::string> gone;
    for (const Renamed& name : names) {
        gone.emplace_back(name.node->key());
        tree.setKey(*name.node, "");
    }
    window_.messagePane.removeNames(gone);
    std::vector<MessagePane::Rename> renames;
    for (const Renamed& name : names) {
        const std::string& text = name.node->text();
        name.node->setText(name.newName + text.substr(text.find(':')));
        tree.setKey(*name.node, name.newName);
        window_.InsertCbo(name.newName);
        renames.emplace_back(name.oldName, name.newName);
    }
    fire(window_.messagePane.onRenamed, renames);
}

void MarkedChanges::renameItem(Node& item, const Renamed& name) {
    std::vector<std::string> words = splitAtBlanks(item.text());
    constexpr std::size_t kNamePlace = 2;
    if (name.oldName.empty())
        words.insert(words.begin() + static_cast<std::ptrdiff_t>(std::min(words.size(), kNamePlace)),
                     name.newName);
    else
        words[kNamePlace] = name.newName;
    item.setText(join(words, " "));
}

void MarkedChanges::showAgain() {
    const std::vector<Node*> marked = window_.markedNodes.units();
    window_.treeInteraction.showAgain(window_.liveTree().selected());
    window_.markedNodes.set(marked);
}

} // namespace zb
