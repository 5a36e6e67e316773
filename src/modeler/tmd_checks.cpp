#include "modeler/tmd_checks.h"

#include "controls/desktop.h"
#include "outputs/tmd_rules.h"
#include "platform/text.h"

#include <utility>

namespace zb {

namespace {

/// The message's node. The Keys of items are in the same tree and may be equal, so the text is compared too.
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

TmdChecks::TmdChecks(const ModuleState& state, ModelerControls& window, std::function<void()> showModeler)
    : state_(state), window_(window), showModeler_(std::move(showModeler)) {}

bool TmdChecks::checkTRMessages() {
    if (checkSECSMessageMissing())
        return refuse(kUnknownSECSMessageText);
    if (checkSECSMessageUnselected())
        return refuse(kNoSECSMessageText);
    return checkDefaults();
}

bool TmdChecks::checkSECSMessageMissing() {
    Records faulty;
    for (const auto& record : state_.TRModelStore->TRMessages()) {
        if (!isSECSMessageKnown(*record, *state_.SECSMessageStore))
            faulty.push_back(record.get());
    }
    return markAll(faulty);
}

bool TmdChecks::checkSECSMessageUnselected() {
    Records faulty;
    for (const auto& record : state_.TRModelStore->TRMessages()) {
        if (!isSECSMessageSelected(*record))
            faulty.push_back(record.get());
    }
    return markAll(faulty);
}

bool TmdChecks::checkDefaults() {
    DefaultTRMessages defaults;
    for (const auto& record : state_.TRModelStore->TRMessages()) {
        const std::optional<std::string> registered = defaults.add(*record, receivedDirection());
        if (!registered)
            continue;
        // A default without a name cannot be distinguished from none, and ends the check without a message.
        if (!defaults.isDefaultRegistered(record->SECSMessage()))
            return false;
        // Showing the window refills the stores.
        const std::string name = record->Name();
        showModeler_();
        refuse(kSecondDefaultText);
        markReceived(name);
        markReceived(*registered);
        return false;
    }
    return true;
}

// The marks come after the change to the window, so that they are on what it shows.
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
        if (!rows[at].isHead() || state_.sequences.hasItems(at))
            continue;
        window_.lvwSequence.rows()[at]->setForeColor(kErrorForeColor);
        complete = false;
    }
    return complete || refuse(kEmptySequenceText);
}

bool TmdChecks::refuse(std::string_view text) {
    window_.desktop().showBox(std::string(text), BoxIcon::Critical);
    return false;
}

int TmdChecks::receivedDirection() const {
    return state_.ProjectType == 1 ? kToHost : kToEquip;
}

} // namespace zb
