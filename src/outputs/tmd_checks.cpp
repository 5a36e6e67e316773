#include "outputs/tmd_checks.h"

#include "controls/desktop.h"
#include "model/condition.h"
#include "platform/text.h"

#include <utility>

namespace zb {

namespace {

constexpr std::string_view kNone = "NONE";

/// The message's node. The Keys of items share the tree and may be the same, so the text counts, too.
Node* messageNode(NodeTree& tree, const std::string& name) {
    Node* found = tree.find(name);
    if (found != nullptr && found->text() == name)
        return found;
    Node* root = tree.firstRoot();
    for (Node* node = root == nullptr ? nullptr : root->child(); node != nullptr; node = node->next()) {
        if (node->text() == name)
            return node;
    }
    return nullptr;
}

} // namespace

TmdChecks::TmdChecks(ModelerState& state, ModelerControls& window, std::function<void()> showModeler)
    : state_(state), window_(window), showModeler_(std::move(showModeler)) {}

bool TmdChecks::checkTRMessages() {
    if (checkSECSMessageMissing())
        return refuse("Select a valid SECSMessage!");
    if (checkSECSMessageUnselected())
        return refuse("SECSMessage was not selected!");
    if (!checkDefaults())
        return false;
    DefaultTRMessages.clear();
    return true;
}

bool TmdChecks::checkSECSMessageMissing() {
    Records faulty;
    for (const auto& record : state_.TRModelStore->TRMessages()) {
        if (state_.SECSMessageStore->getByName(record->SECSMessage()) == nullptr)
            faulty.push_back(record.get());
    }
    return markAll(faulty);
}

bool TmdChecks::checkSECSMessageUnselected() {
    Records faulty;
    for (const auto& record : state_.TRModelStore->TRMessages()) {
        if (isBlank(record->SECSMessage()) || record->SECSMessage() == kNone)
            faulty.push_back(record.get());
    }
    return markAll(faulty);
}

bool TmdChecks::checkDefaults() {
    DefaultTRMessages.clear();
    for (const auto& record : state_.TRModelStore->TRMessages()) {
        if (record->Direction() != receivedDirection() || !isDefaultCondition(record->Condition()))
            continue;
        const std::string key = upper(record->SECSMessage());
        if (!isDefaultRegistered(key)) {
            // A default without a name takes the place, and cannot be told from none.
            if (!DefaultTRMessages.emplace(key, record->Name()).second)
                return false;
            continue;
        }
        const std::string name = record->Name();
        const std::string registered = DefaultTRMessages.at(key);
        showModeler_();
        refuse("Default TRMessage was duplicated!");
        markReceived(name);
        markReceived(registered);
        return false;
    }
    return true;
}

bool TmdChecks::isDefaultRegistered(std::string_view secsMessage) const {
    const auto found = DefaultTRMessages.find(upper(secsMessage));
    return found != DefaultTRMessages.end() && !isBlank(found->second);
}

// The marks come behind the change to the window, so that they are on what it shows.
bool TmdChecks::markAll(const Records& faulty) {
    if (faulty.empty())
        return false;
    showModeler_();
    for (const TRMessageRecord* record : faulty)
        mark(*record);
    return true;
}

void TmdChecks::mark(const TRMessageRecord& record) {
    if (record.Direction() != kToHost && record.Direction() != kToEquip)
        return;
    const bool received = record.Direction() == receivedDirection();
    Tree& tree = received ? window_.tvwRcvTRMsg : window_.tvwSndTRMsg;
    if (Node* node = messageNode(tree.nodes(), record.Name()))
        node->setForeColor(kErrorForeColor);
}

void TmdChecks::markReceived(std::string_view text) {
    NodeTree& tree = window_.tvwRcvTRMsg.nodes();
    for (int index = 1; Node* node = tree.at(index); ++index) {
        if (node->text() == text)
            node->setForeColor(kErrorForeColor);
    }
}

bool TmdChecks::checkSequences() {
    bool complete = true;
    const auto& rows = state_.sequences.rows();
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (!rows[at].isHead() || (at + 1 < rows.size() && !rows[at + 1].isHead()))
            continue;
        window_.lvwSequence.rows()[at]->setForeColor(kErrorForeColor);
        complete = false;
    }
    return complete || refuse("Not defined SequenceItem!");
}

bool TmdChecks::refuse(std::string_view text) {
    state_.desktop.showBox(std::string(text), BoxIcon::Critical);
    return false;
}

int TmdChecks::receivedDirection() const {
    return state_.ProjectType == 1 ? kToHost : kToEquip;
}

} // namespace zb
