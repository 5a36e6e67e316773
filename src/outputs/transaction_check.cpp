#include "outputs/transaction_check.h"

#include "messages/message_store.h"
#include "model/condition.h"
#include "model/statement.h"
#include "outputs/tmd_rules.h"
#include "platform/text.h"
#include "platform/xml_document.h"
#include "project/project_view.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace zb {

namespace {

using ItemNames = std::unordered_set<std::string>;

std::string inQuotes(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string directionText(int direction) {
    return direction == kToHost ? "ToHost" : "ToEquip";
}

std::string streamFunction(const SECSMessageRecord& message) {
    return message.getNumbersText();
}

class TransactionChecker {
public:
    explicit TransactionChecker(const ProjectView& project)
        : project_(project), received_(project.side == Side::Host ? kToHost : kToEquip) {}

    Findings takeFindings() { return std::move(findings_); }

    void checkMessage(const TRMessageRecord& record) {
        at(FindingPlace::inTRMessage(record.Name(), {}));
        checkName(record.Name());
        const SECSMessageRecord* secsMessage = checkSECSMessage(record);
        if (secsMessage != nullptr && record.DataBlock())
            checkDataBlock(*record.DataBlock(), *secsMessage);
        if (record.Direction() != kToHost && record.Direction() != kToEquip)
            tell("This TR message goes to neither side, so that the TMD file leaves it out", "tr.direction");
        if (record.Direction() != received_)
            return;
        checkDefault(record);
        checkCondition(Condition::parse(record.Condition()));
        for (const auto& item : record.TRItems()) {
            at(FindingPlace::inTRMessage(record.Name(), item->Name()));
            checkItem(*item);
        }
    }

    void checkSequences() {
        const auto& rows = project_.sequences.rows();
        int position = 0;
        std::string sequence;
        for (std::size_t index = 0; index < rows.size(); ++index) {
            const SequenceRow& row = rows[index];
            const int place = static_cast<int>(index) + 1;
            if (!row.isHead()) {
                ++position;
                at(FindingPlace::inSequence(sequence, std::to_string(position), place));
                checkSequenceRow(row);
                continue;
            }
            position = 0;
            sequence = row.text;
            at(FindingPlace::inSequence(sequence, {}, place));
            inSequence_ = true;
            checkName(row.text);
            if (!project_.sequences.hasItems(index))
                tell(std::string(kEmptySequenceText), "seq.empty");
        }
    }

private:
    void checkName(const std::string& name) {
        if (!isXmlName(name))
            tell(inQuotes(name) + " is no name that a TMD file can hold", "tmd.name");
    }

    void checkText(const std::string& text) {
        if (!isXmlText(text))
            tell("There are characters that a TMD file cannot hold", "tmd.text");
    }

    /// Sets its items for the next checks.
    const SECSMessageRecord* checkSECSMessage(const TRMessageRecord& record) {
        items_.reset();
        const std::string& name = record.SECSMessage();
        const SECSMessageRecord* found = project_.messages.getByName(name);
        if (!isSECSMessageSelected(record)) {
            tell(std::string(kNoSECSMessageText), "tr.secs.none");
        } else if (found == nullptr) {
            tell(std::string(kUnknownSECSMessageText) + " There is no " + inQuotes(name), "tr.secs.unknown");
        } else {
            checkName(name);
            items_.emplace();
            for (const SECSItemRecord& item : found->getItems())
                items_->insert(item.getName());
        }
        return found;
    }

    /// It is a copy, which does not follow changes of the definition.
    void checkDataBlock(const SECSMessageRecord& block, const SECSMessageRecord& definition) {
        for (const SECSItemRecord& item : block.getItems())
            checkDataItem(item.getName());
        if (block.getStream() != definition.getStream() || block.getFunction() != definition.getFunction())
            tell("The data block is " + streamFunction(block) + ", and the SECS message " +
                     streamFunction(definition) + " now",
                 "tr.block.moved", Severity::Warning);
    }

    void checkDefault(const TRMessageRecord& record) {
        if (isBlank(record.SECSMessage()))
            return;
        if (const auto first = defaults_.add(record, received_))
            tell(std::string(kSecondDefaultText) + " " + inQuotes(*first) + " is one for " +
                     inQuotes(record.SECSMessage()) + " already",
                 "tr.default.twice");
    }

    void checkItem(const TRItemRecord& item) {
        checkName(item.Name());
        checkText(item.Value() + item.ABSValue());
        checkDataItem(DataItemAddress(item.Value()).name());
        const std::vector<Statement> statements = statementsOf(item);
        for (const Statement* statement : flatStatements(statements))
            checkCondition(statement->condition);
    }

    void checkCondition(const Condition& condition) {
        checkText(condition.text());
        for (const DataItemAddress& item : condition.dataItems())
            checkDataItem(item.name());
    }

    /// Each that is missing is reported once a place.
    void checkDataItem(const std::string& name) {
        if (items_ && !name.empty() && !items_->contains(name) && reported_.insert(name).second)
            tell("The SECS message has no data item " + inQuotes(name), "tr.item.unknown");
    }

    void checkSequenceRow(const SequenceRow& row) {
        if (!inSequence_)
            tell("This row is before the first sequence", "seq.row.stray");
        const std::string& name = row.transactionName;
        const TRMessageRecord* record =
            project_.model == nullptr ? nullptr : project_.model->getTRMessage(name);
        if (record == nullptr)
            return tell("There is no TR message " + inQuotes(name), "seq.message.unknown");
        const std::string direction = directionText(record->Direction());
        // A TR message that goes to neither side is reported itself.
        const bool goesAnywhere = record->Direction() == kToHost || record->Direction() == kToEquip;
        if (goesAnywhere && row.direction != direction)
            tell(inQuotes(name) + " goes " + direction + " now, and not " +
                     (row.direction.empty() ? "nowhere" : row.direction),
                 "seq.direction", Severity::Warning);
    }

    /// The place of the next findings.
    void at(FindingPlace place) {
        place_ = std::move(place);
        reported_.clear();
    }

    void tell(std::string text, std::string_view id, Severity severity = Severity::Error) {
        findings_.push_back({severity, place_, std::move(text), std::string(id)});
    }

    const ProjectView& project_;
    int received_;
    Findings findings_;
    FindingPlace place_;
    std::optional<ItemNames> items_;           // of the current SECS message
    std::unordered_set<std::string> reported_; // data items
    DefaultTRMessages defaults_;
    bool inSequence_ = false;
};

/// Whether no SECS message has two defaults.
bool hasSingleDefaults(const TRModelStore& model) {
    DefaultTRMessages defaults;
    return std::none_of(model.TRMessages().begin(), model.TRMessages().end(), [&](const auto& record) {
        return defaults.add(*record, model.ReceivedDirection()).has_value();
    });
}

bool hasEmptySequence(const Sequences& sequences) {
    const auto& rows = sequences.rows();
    for (std::size_t at = 0; at < rows.size(); ++at)
        if (rows[at].isHead() && !sequences.hasItems(at))
            return true;
    return false;
}

} // namespace

bool mayBuildTmd(const ProjectView& project) {
    const auto& records = project.model->TRMessages();
    const bool named = std::all_of(records.begin(), records.end(), [&](const auto& record) {
        return isSECSMessageSelected(*record) && isSECSMessageKnown(*record, project.messages);
    });
    return named && hasSingleDefaults(*project.model) && !hasEmptySequence(project.sequences);
}

Findings checkTransactions(const ProjectView& project) {
    TransactionChecker checker(project);
    if (project.model != nullptr) {
        for (const auto& record : project.model->TRMessages())
            checker.checkMessage(*record);
    }
    checker.checkSequences();
    return checker.takeFindings();
}

Findings checkTRMessages(const ProjectView& project, const std::vector<const TRMessageRecord*>& records) {
    TransactionChecker checker(project);
    for (const TRMessageRecord* record : records)
        checker.checkMessage(*record);
    return checker.takeFindings();
}

Findings checkSequences(const ProjectView& project) {
    TransactionChecker checker(project);
    checker.checkSequences();
    return checker.takeFindings();
}

} // namespace zb
