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

/// No more names than a notice has room for.
std::string listed(std::vector<std::string> names) {
    constexpr std::size_t kMost = 5;
    const std::size_t all = names.size();
    names.resize(std::min(all, kMost));
    return join(names, ", ") + (all > kMost ? " and " + std::to_string(all - kMost) + " others" : "");
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
    workbench_.services().editor.messagePane.onRenamed =
        [this](const std::vector<MessagePane::Rename>& renames) { renamed(renames); };
}

void RenameOffer::forget() {
    renames_.clear();
    review();
}

void RenameOffer::renamed(const std::vector<MessagePane::Rename>& renames) {
    std::unordered_map<std::string, std::vector<std::size_t>> byName;
    for (std::size_t at = 0; at < renames_.size(); ++at)
        byName[upper(renames_[at].to)].push_back(at);
    for (const auto& [from, to] : renames) {
        // Those that led to the old name lead to the new one.
        if (const auto earlier = byName.find(upper(from)); earlier != byName.end()) {
            for (const std::size_t at : earlier->second)
                renames_[at].to = to;
        }
        renames_.push_back({from, to});
    }
    offer();
}

RenameOffer::Users RenameOffer::allUsers() const {
    Users users;
    if (const TRModelStore* model = workbench_.services().modeler.store(); model != nullptr) {
        for (const auto& record : model->TRMessages())
            users[upper(record->SECSMessage())].push_back(record.get());
    }
    return users;
}

std::vector<const TRMessageRecord*> RenameOffer::usersOf(const Rename& rename, const Users& users) const {
    const NodeTree& messages = workbench_.services().editor.liveTree();
    const bool isInForce = messages.find(rename.from) == nullptr && messages.find(rename.to) != nullptr;
    const auto found = isInForce ? users.find(upper(rename.from)) : users.end();
    return found == users.end() ? std::vector<const TRMessageRecord*>() : found->second;
}

void RenameOffer::review() {
    if (!offered_)
        return;
    const Users users = renames_.empty() ? Users() : allUsers();
    if (std::none_of(renames_.begin(), renames_.end(),
                     [&](const Rename& rename) { return !usersOf(rename, users).empty(); })) {
        offered_ = false;
        workbench_.desktop().withdraw(kTopic);
    }
}

void RenameOffer::offer() {
    const Users all = allUsers();
    std::size_t users = 0;
    std::vector<std::string> names;
    for (const Rename& rename : renames_) {
        const std::size_t count = usersOf(rename, all).size();
        users += count;
        if (count > 0)
            names.push_back(rename.from);
    }
    if (users == 0) {
        review();
        return;
    }
    offered_ = true;
    workbench_.desktop().post(
        {messagesText(users) + (users == 1 ? " still names " : " still name ") + listed(names),
         {{users == 1 ? "Rename it too" : "Rename them too", [this] { renameAll(); }}},
         kTopic});
}

void RenameOffer::renameAll() {
    std::size_t users = 0;
    const std::vector<Rename> renames = std::exchange(renames_, {});
    const Users all = allUsers();
    offered_ = false;
    for (const Rename& rename : renames) {
        for (const TRMessageRecord* user : usersOf(rename, all)) {
            // One that was renamed twice has followed the first time.
            if (!equalsIgnoringCase(user->SECSMessage(), rename.from))
                continue;
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
