#include "lint/live_model.h"

#include "lint/left_out.h"
#include "messages/message_store.h"
#include "messages/smd/smd_writer.h"
#include "model/tr_model_store.h"
#include "outputs/transaction_check.h"
#include "platform/text.h"
#include "platform/tree/node_tree.h"
#include "platform/tree/node_walk.h"
#include "project/project_view.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

namespace zb {

namespace {

/// The message with its items, as a walk over the whole tree would put it into a store.
void addDefinition(const Node& message, const CodePage& codePage, SECSMessageStore& store) {
    NodeTree copy;
    const Node* description = message.previous();
    copy.add(nullptr, Relation::Last, description == nullptr ? std::string() : description->text());
    std::vector<Node*> open{&copy.add(nullptr, Relation::Last, message.text())};
    for (NodeWalk walk(message); const Node* item = walk.node(); walk.next()) {
        open.resize(walk.depth() + 1);
        open.push_back(&copy.add(open.back(), Relation::Child, item->text()));
    }
    SmdWriter(codePage).buildMessageText(WalkMode::SaveProject, copy, store);
}

void addDefinition(const NodeTree& tree, std::string_view name, const CodePage& codePage,
                   SECSMessageStore& store) {
    if (const Node* message = tree.find(name); message != nullptr && message->parent() == nullptr)
        addDefinition(*message, codePage, store);
}

} // namespace

void LiveModel::restart(const Subject& subject, const CodePage& codePage, bool standard) {
    for (auto& [name, group] : groups_)
        replace(group.findings, {});
    replace(sequenceFindings_, {});
    groups_.clear();
    groupOf_.clear();
    touched_.clear();
    queue_.clear();
    areRecordsGathered_ = false;
    sequences_.clear();
    subject_ = subject;
    codePage_ = codePage;
    check_.reset();
    if (standard)
        check_.emplace(codePage_);
    checksSequences_ = subject_.sequences != nullptr;
    if (subject_.model != nullptr)
        for (const auto& record : subject_.model->TRMessages())
            touched_.push_back(record->Name());
}

void LiveModel::touch(std::string_view trMessage) {
    touched_.emplace_back(trMessage);
    areRecordsGathered_ = false;
    checksSequences_ = true;
}

void LiveModel::touchDefinition(std::string_view secsMessage) {
    const std::string name = upper(secsMessage);
    if (!groups_.contains(name))
        return;
    queueGroup(name);
    checksSequences_ = true;
}

void LiveModel::touchSequences() {
    if (subject_.sequences != nullptr && !(*subject_.sequences == sequences_))
        checksSequences_ = true;
}

void LiveModel::checkNext() {
    if (!touched_.empty()) {
        takeTouched();
    } else if (!queue_.empty()) {
        const std::string name = std::move(queue_.front());
        queue_.pop_front();
        checkGroup(name);
    } else if (std::exchange(checksSequences_, false)) {
        checkAllSequences();
    }
}

// A change may have moved the TR message to another SECS message.
void LiveModel::takeTouched() {
    const std::string name = std::move(touched_.front());
    touched_.pop_front();
    if (const auto before = groupOf_.find(name); before != groupOf_.end()) {
        --queueGroup(before->second->first)->second.count;
        groupOf_.erase(before);
    }
    const TRMessageRecord* record = subject_.model == nullptr ? nullptr : subject_.model->getTRMessage(name);
    if (record == nullptr)
        return;
    const auto group = queueGroup(upper(record->SECSMessage()));
    groupOf_.emplace(name, group);
    ++group->second.count;
}

LiveModel::Groups::iterator LiveModel::queueGroup(const std::string& group) {
    const auto queued = groups_.try_emplace(group).first;
    if (!std::exchange(queued->second.isQueued, true))
        queue_.push_back(group);
    return queued;
}

// One walk over the model for all groups: with one for each, a model takes the square of its length.
void LiveModel::gatherRecords() {
    if (std::exchange(areRecordsGathered_, true))
        return;
    for (auto& [name, group] : groups_)
        group.records.clear();
    for (const auto& record : subject_.model->TRMessages())
        if (const auto known = groupOf_.find(record->Name()); known != groupOf_.end())
            known->second->second.records.push_back(record.get());
}

void LiveModel::checkGroup(const std::string& name) {
    Group& group = groups_[name];
    group.isQueued = false;
    if (group.count == 0 || subject_.model == nullptr) {
        replace(group.findings, {});
        groups_.erase(name);
        return;
    }
    gatherRecords();
    const std::vector<const TRMessageRecord*>& records = group.records;
    SECSMessageStore messages;
    addDefinition(*subject_.tree, name, codePage_, messages);
    const ProjectView view{sideOf(subject_.projectType), messages, subject_.model, *subject_.sequences};
    Findings findings = checkTRMessages(view, records);
    if (check_)
        for (Finding& finding : check_->checkTRMessages(view, records))
            findings.push_back(std::move(finding));
    replace(group.findings, std::move(findings));
}

void LiveModel::checkAllSequences() {
    sequences_ = *subject_.sequences;
    SECSMessageStore messages;
    std::set<std::string> names;
    if (subject_.model != nullptr && check_)
        for (const SequenceRow& row : sequences_.rows())
            if (const TRMessageRecord* record = subject_.model->getTRMessage(row.transactionName);
                record != nullptr && names.insert(upper(record->SECSMessage())).second)
                addDefinition(*subject_.tree, record->SECSMessage(), codePage_, messages);
    const ProjectView view{sideOf(subject_.projectType), messages, subject_.model, sequences_};
    Findings findings = checkSequences(view);
    if (check_)
        for (Finding& finding : check_->checkSequences(view))
            findings.push_back(std::move(finding));
    replace(sequenceFindings_, std::move(findings));
}

void LiveModel::replace(Findings& findings, Findings fresh) const {
    if (findings == fresh)
        return;
    if (onChange)
        onChange(findings, fresh);
    findings = std::move(fresh);
}

bool LiveModel::visit(const std::function<bool(const Finding&)>& visit) const {
    const SECSMessageStore none;
    std::unordered_map<std::string_view, std::vector<const Finding*>> found;
    for (const auto& [name, group] : groups_)
        for (const Finding& finding : group.findings)
            found[finding.place.message].push_back(&finding);
    const auto tell = [&](const Finding& finding) {
        Finding explained = finding;
        if (check_)
            explainLeftOut(explained, {sideOf(subject_.projectType), none, subject_.model, sequences_});
        return visit(explained);
    };
    if (subject_.model != nullptr && !found.empty())
        for (const auto& record : subject_.model->TRMessages())
            if (const auto findings = found.find(record->Name()); findings != found.end())
                for (const Finding* finding : findings->second)
                    if (!tell(*finding))
                        return false;
    return std::all_of(sequenceFindings_.begin(), sequenceFindings_.end(), tell);
}

} // namespace zb
