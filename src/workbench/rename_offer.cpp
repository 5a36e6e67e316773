#include "workbench/rename_offer.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "modeler/frm_tr_modeler.h"
#include "platform/text.h"
#include "workbench/frm_workbench.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zb {

namespace {

constexpr const char* kTopic = "renamed message";
constexpr std::size_t kSecsMessageColumn = 1;

std::string messagesText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " TR message" : " TR messages");
}

/// The data of a sent message begins with the head of its SECS message.
void renameBlock(TRMessageRecord& record, const std::string& to) {
    if (!record.DataBlock())
        return;
    const SECSMessageRecord& block = *record.DataBlock();
    const std::size_t colon = block.getNodeText().find(':');
    if (colon == std::string_view::npos)
        return;
    SECSMessageRecord renamed;
    renamed.parseTexts(std::string(to).append(block.getNodeText().substr(colon)), block.getDescription(),
                       block.getBodyText());
    record.setDataBlock(std::move(renamed));
}

} // namespace

RenameOffer::RenameOffer(frmWorkbench& workbench) : workbench_(workbench) {
    workbench_.services().editor.messagePane.onRenamed = [this](const std::string& from,
                                                                const std::string& to) { renamed(from, to); };
}

void RenameOffer::forget() {
    renames_.clear();
    review();
}

void RenameOffer::renamed(const std::string& from, const std::string& to) {
    for (Rename& earlier : renames_) {
        if (equalsIgnoringCase(earlier.to, from))
            earlier.to = to;
    }
    renames_.push_back({from, to});
    offer();
}

bool RenameOffer::isCurrent(const Rename& rename) const {
    const NodeTree& messages = workbench_.services().editor.liveTree();
    return messages.find(rename.from) == nullptr && messages.find(rename.to) != nullptr &&
           !usersOf(rename.from).empty();
}

std::vector<const TRMessageRecord*> RenameOffer::usersOf(const std::string& name) const {
    std::vector<const TRMessageRecord*> users;
    const TRModelStore* model = workbench_.services().modeler.store();
    if (model == nullptr)
        return users;
    for (const auto& record : model->TRMessages()) {
        if (equalsIgnoringCase(record->SECSMessage(), name))
            users.push_back(record.get());
    }
    return users;
}

void RenameOffer::review() {
    if (offered_ && std::none_of(renames_.begin(), renames_.end(),
                                 [this](const Rename& rename) { return isCurrent(rename); })) {
        offered_ = false;
        workbench_.desktop().withdraw(kTopic);
    }
}

void RenameOffer::offer() {
    std::size_t users = 0;
    std::string names;
    for (const Rename& rename : renames_) {
        if (!isCurrent(rename))
            continue;
        users += usersOf(rename.from).size();
        names += (names.empty() ? "" : ", ") + rename.from;
    }
    if (users == 0) {
        review();
        return;
    }
    offered_ = true;
    workbench_.desktop().post({messagesText(users) + (users == 1 ? " still names " : " still name ") + names,
                               {{users == 1 ? "Rename it too" : "Rename them too", [this] { renameAll(); }}},
                               kTopic});
}

void RenameOffer::renameAll() {
    std::size_t users = 0;
    const std::vector<Rename> renames = std::exchange(renames_, {});
    offered_ = false;
    for (const Rename& rename : renames) {
        if (!isCurrent(rename))
            continue;
        for (const TRMessageRecord* user : usersOf(rename.from)) {
            if (users++ == 0)
                workbench_.desktop().steps().name("Rename " + rename.from + " in TR messages");
            renameIn(user->Name(), rename.to);
        }
    }
    if (users > 0)
        workbench_.desktop().post({messagesText(users) + " renamed"});
}

void RenameOffer::renameIn(const std::string& message, const std::string& to) {
    frmTRModeler& modeler = workbench_.services().modeler;
    TRMessageRecord* record = modeler.store()->changeTRMessage(message);
    record->setSECSMessage(to);
    renameBlock(*record, to);
    // The table shows messages, or the items of one.
    const auto& columns = modeler.lvwTRObject.columns();
    if (columns.size() <= kSecsMessageColumn || columns[kSecsMessageColumn].text != "SECSMessage")
        return;
    if (ListRow* row = modeler.lvwTRObject.find(message); row != nullptr)
        row->setCell(kSecsMessageColumn, to);
}

} // namespace zb
