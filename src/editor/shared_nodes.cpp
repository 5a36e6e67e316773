#include "editor/shared_nodes.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "editor/node_exchange.h"
#include "editor/stream_function_list.h"
#include "messages/library_store.h"
#include "messages/message_nodes.h"
#include "messages/smd/smd_reader.h"
#include "project/module_state.h"
#include "project/project_messages.h"

#include <algorithm>
#include <list>
#include <utility>

namespace zb {

namespace {

std::string messagesText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " message" : " messages");
}

/// "S6F11" as the library asks for it: "S6 F11".
std::string asked(const std::string& name) {
    const std::size_t letter = name.find('F');
    return name.substr(0, letter) + " " + name.substr(letter);
}

/// A message without items, for one that the library does not have.
SECSMessageRecord bareMessage(const std::string& name) {
    const bool primary = (name.back() - '0') % 2 != 0;
    SECSMessageRecord record;
    record.parseNodeText(name + ": " + asked(name) + (primary ? " W" : "") + " H<->E", "");
    return record;
}

std::string textOf(const Finding& finding) {
    return "line " + std::to_string(finding.place.line) + ": " + finding.text;
}

} // namespace

SharedNodes::SharedNodes(frmSECSEditor& window) : window_(window) {
    window_.treeCommands.onCopied = [this] {
        const CopiedNodes& copies = window_.treeCommands.copies();
        put({sharedTextOf(copies), exchangeTextOf(copies)});
    };
}

void SharedNodes::put(SharedClipboard contents) {
    own_ = std::move(contents);
    window_.desktop().screen().putOnClipboard(own_);
}

bool SharedNodes::isCopyOutdated() const {
    const SharedClipboard now = window_.desktop().screen().clipboard();
    return now != SharedClipboard() && now != own_;
}

void SharedNodes::copyBare() {
    const CopiedNodes copies = window_.treeCommands.copiesOfTargets();
    if (copies.empty())
        return;
    const BareSml bare = bareTextOf(copies);
    put({bare.text, {}});
    std::string text = "Copied as bare SML";
    if (!bare.notes.empty())
        text += "; " + bare.notes.front();
    if (bare.notes.size() > 1)
        text += ", and " + std::to_string(bare.notes.size() - 1) + " more";
    window_.desktop().post({text, {}, "copy"});
}

void SharedNodes::paste() {
    const SharedClipboard contents = window_.desktop().screen().clipboard();
    if (!contents.nodes.empty())
        pasteNodes(contents.nodes);
    else
        pasteText(contents.text);
}

void SharedNodes::pasteNodes(std::string_view nodes) {
    std::optional<CopiedNodes> copies = copiesOfExchangeText(nodes);
    if (!copies) {
        report(0, 0, "the clipboard holds nothing that can be pasted here");
        return;
    }
    fire(onFindings, Findings());
    const bool messages = copies->front()->firstRoot()->next() != nullptr;
    Node* selected = window_.liveTree().selected();
    if (messages && selected == nullptr) {
        std::vector<SECSMessageRecord> records;
        for (const auto& copy : *copies)
            records.push_back(messageRecordOf(*copy->lastRoot()));
        std::vector<const SECSMessageRecord*> pointers;
        pointers.reserve(records.size());
        for (const SECSMessageRecord& record : records)
            pointers.push_back(&record);
        const std::size_t added = add(pointers);
        report(added, records.size() - added, added < records.size() ? "their names are taken" : "");
        return;
    }
    if (messages && selected->parent() != nullptr)
        window_.liveTree().select(&rootOf(*selected));
    window_.treeCommands.takeCopies(std::move(*copies));
    const bool below = !messages && selected != nullptr && selected->parent() == nullptr;
    window_.treeCommands.pasteFromTemp(below ? PastePosition::Child : PastePosition::Next);
}

void SharedNodes::pasteText(std::string_view text) {
    if (const auto names = streamFunctionList(text)) {
        pasteList(*names);
        return;
    }
    SECSLibraryStore read(window_.state().codePage);
    read.loadSml(text);
    const auto records = read.getMessages();
    const std::size_t added = add(records);
    std::string fault = added < records.size() ? "their names are taken" : "";
    Findings findings = read.findings();
    std::vector<NoticeAction> actions;
    if (!findings.empty()) {
        fault = textOf(findings.front());
        if (findings.size() > 1)
            fault += ", and " + std::to_string(findings.size() - 1) + " more";
        actions.push_back({"Show", [this] { fire(onShow); }});
    }
    for (Finding& finding : findings)
        finding.place.message = kPastedText;
    fire(onFindings, findings);
    report(added, records.size() - added + read.unread(), fault, std::move(actions));
}

void SharedNodes::pasteList(const std::vector<std::string>& names) {
    fire(onFindings, Findings());
    std::list<SECSMessageRecord> bare;
    std::vector<const SECSMessageRecord*> records;
    for (const std::string& name : names) {
        const auto known = window_.libraryPane.library().getByStreamFunction(asked(name));
        records.insert(records.end(), known.begin(), known.end());
        if (known.empty())
            records.push_back(&bare.emplace_back(bareMessage(name)));
    }
    const std::size_t added = add(records);
    report(added, records.size() - added, added < records.size() ? "their names are taken" : "");
}

std::size_t SharedNodes::add(const std::vector<const SECSMessageRecord*>& records) {
    window_.desktop().steps().name("Paste " + messagesText(records.size()));
    std::size_t added = 0;
    Node* first = nullptr;
    for (const SECSMessageRecord* record : records) {
        if (!addMessageToTree(window_.liveTree(), *record).empty())
            continue;
        window_.InsertCbo(record->getName());
        if (first == nullptr)
            first = window_.liveTree().lastRoot();
        ++added;
    }
    window_.TreeView_ForeColor();
    if (first != nullptr) {
        window_.liveTree().select(first);
        window_.treeInteraction.nodeClick();
    }
    return added;
}

void SharedNodes::report(std::size_t added, std::size_t left, const std::string& fault,
                         std::vector<NoticeAction> actions) {
    std::string text = added == 0 && left == 0 ? "Nothing pasted" : messagesText(added) + " pasted";
    if (left > 0)
        text += ", " + std::to_string(left) + " not";
    if (!fault.empty())
        text += ": " + fault;
    window_.desktop().post({text, std::move(actions), "paste"});
}

} // namespace zb
