#include "lint/project_check.h"

#include "lint/left_out.h"
#include "lint/rule.h"
#include "lint/rule_context.h"
#include "messages/definition_check.h"
#include "messages/message_store.h"
#include "outputs/transaction_check.h"
#include "platform/tree/node_tree.h"
#include "project/project_messages.h"
#include "project/project_view.h"

#include <unordered_map>

namespace zb {

namespace {

void append(Findings& findings, Findings more) {
    for (Finding& finding : more)
        findings.push_back(std::move(finding));
}

/// Runs one kind of function of all rules that have it.
template<typename Check, typename Context>
void runRules(Check Rule::*check, const Context& context, Findings& findings) {
    for (const Rule& rule : allRules()) {
        if (rule.*check == nullptr)
            continue;
        Report report(rule, findings);
        (rule.*check)(context, report);
    }
}

/// The SECS messages of TR messages, parsed once each.
class Definitions {
public:
    explicit Definitions(const SECSMessageStore& messages) : messages_(messages) {}

    /// Null for a name without a message.
    const CheckedMessage* find(const SECSMessageRecord* record) {
        if (record == nullptr)
            return nullptr;
        const auto found = parsed_.find(record);
        return found != parsed_.end() ? &found->second
                                      : &parsed_.emplace(record, CheckedMessage::of(*record)).first->second;
    }

    const SECSMessageRecord* record(const TRMessageRecord& record) const {
        return messages_.getByName(record.SECSMessage());
    }

private:
    const SECSMessageStore& messages_;
    std::unordered_map<const SECSMessageRecord*, CheckedMessage> parsed_;
};

} // namespace

Findings StandardCheck::checkMessages(const NodeTree& tree) const {
    std::vector<CheckedMessage> messages;
    MessageIndex index;
    for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next()) {
        if (!isMessageNode(*node))
            continue;
        messages.push_back(CheckedMessage::of(*node));
        index.put(*node, MessageSummary::of(messages.back()));
    }
    Findings findings;
    for (const CheckedMessage& message : messages) {
        append(findings, checkMessage(message, index));
        append(findings, checkLinks(message, index));
    }
    return findings;
}

Findings StandardCheck::checkMessage(const CheckedMessage& message, const MessageIndex& index) const {
    const auto* published = standard_.message(message.stream, message.function);
    LayoutMatch match;
    match.expected.resize(message.items.size());
    if (published != nullptr)
        match = matchLayout(message, *published, standard_);
    const MessageContext context{message, index, standard_, codePage_, published, std::move(match)};
    Findings findings;
    runRules(&Rule::message, context, findings);
    return findings;
}

Findings StandardCheck::checkLinks(const CheckedMessage& message, const MessageIndex& index) const {
    const MessageContext context{
        message, index, standard_, codePage_, standard_.message(message.stream, message.function), {}};
    Findings findings;
    runRules(&Rule::link, context, findings);
    return findings;
}

Findings StandardCheck::checkModel(const ProjectView& project) const {
    std::vector<const TRMessageRecord*> records;
    if (project.model != nullptr)
        for (const auto& record : project.model->TRMessages())
            records.push_back(record.get());
    Findings findings = checkTRMessages(project, records);
    append(findings, checkSequences(project));
    return findings;
}

Findings StandardCheck::checkTRMessages(const ProjectView& project,
                                        const std::vector<const TRMessageRecord*>& records) const {
    Findings findings;
    const ModelContext model{project, codePage_, records, standard_};
    Definitions definitions(project.messages);
    const int received = project.side == Side::Host ? kToHost : kToEquip;
    for (const TRMessageRecord* record : records) {
        const SECSMessageRecord* secsMessage = definitions.record(*record);
        const CheckedMessage* definition = definitions.find(secsMessage);
        if (definition == nullptr)
            continue;
        const TRMessageContext context{*record, *secsMessage, *definition, model,
                                       record->Direction() == received};
        runRules(&Rule::trMessage, context, findings);
    }
    runRules(&Rule::model, model, findings);
    return findings;
}

Findings StandardCheck::checkSequences(const ProjectView& project) const {
    Findings findings;
    const std::vector<const TRMessageRecord*> none;
    runRules(&Rule::sequences, ModelContext{project, codePage_, none, standard_}, findings);
    return findings;
}

ProjectFindings checkProject(const NodeTree& tree, const ProjectView& project, const CodePage& codePage,
                             bool standard) {
    ProjectFindings findings{checkDefinitions(tree, codePage), checkTransactions(project)};
    if (!standard)
        return findings;
    const StandardCheck check(codePage);
    for (Finding& finding : findings.model)
        explainLeftOut(finding, project);
    append(findings.messages, check.checkMessages(tree));
    append(findings.model, check.checkModel(project));
    return findings;
}

} // namespace zb
