#include "document/interface_facts.h"

#include "lint/checked_message.h"
#include "lint/layout_match.h"
#include "lint/published_standard.h"
#include "model/condition.h"
#include "model/statement_text.h"
#include "platform/text.h"
#include "project/project.h"

#include <algorithm>
#include <map>

namespace zb {

namespace {

class FactGatherer {
public:
    FactGatherer(const Project& project, std::string title) : project_(project) {
        facts_.title = std::move(title);
        facts_.isHost = project.side == Side::Host;
    }

    InterfaceFacts run() {
        std::vector<SECSMessageRecord> records = project_.messages.records();
        std::stable_sort(records.begin(), records.end(), [](const auto& left, const auto& right) {
            return std::pair(left.getStream(), left.getFunction()) <
                   std::pair(right.getStream(), right.getFunction());
        });
        for (const SECSMessageRecord& record : records)
            addMessage(record);
        linkReplies();
        for (const auto& record : project_.model->TRMessages())
            addTransaction(*record);
        addSequences();
        for (auto& [name, use] : uses_)
            facts_.items.push_back(std::move(use));
        return std::move(facts_);
    }

private:
    void addMessage(const SECSMessageRecord& record) {
        const CheckedMessage parsed = CheckedMessage::of(record);
        const auto* published = standard_.message(parsed.stream, parsed.function);
        DocumentedMessage message;
        message.name = record.getName();
        message.streamFunction = record.getNumbersText();
        message.title = published == nullptr ? "" : std::string(published->layout.title);
        message.description = record.getDescription();
        message.direction = record.getDirection();
        message.wait = record.getWait();
        message.isReply = parsed.function > 0 && !parsed.isPrimary();
        LayoutMatch match;
        match.expected.resize(parsed.items.size());
        if (published != nullptr)
            match = matchLayout(parsed, *published, standard_);
        for (std::size_t at = 0; at < parsed.items.size(); ++at)
            message.items.push_back(documented(parsed.items[at], match.expected[at], published != nullptr));
        places_.emplace(upper(message.name), facts_.messages.size());
        numbers_.emplace_back(parsed.stream, parsed.function);
        facts_.messages.push_back(std::move(message));
    }

    DocumentedItem documented(const CheckedItem& item, std::string_view expected, bool isPublished) {
        const SECSItemRecord& record = item.record;
        DocumentedItem documented;
        documented.depth = static_cast<std::size_t>(std::count(item.path.begin(), item.path.end(), '/'));
        documented.name = record.getName();
        documented.format = record.getType();
        const std::string count = std::to_string(
            record.isFixed() && item.isList() ? static_cast<int>(item.children.size()) : record.getCount());
        documented.count = record.isFixed() ? count : "up to " + count;
        documented.value = record.getValue();
        documented.isKey = record.isKey();
        const std::string_view name = isPublished ? expected : standard_.itemOf(record.getName());
        if (const PublishedItem* known = item.isList() ? nullptr : standard_.item(name)) {
            documented.meaning = known->meaning;
            for (const std::string_view code : known->codes)
                documented.codes.append(documented.codes.empty() ? "" : "; ").append(code);
        }
        addUse(documented, item.isList());
        return documented;
    }

    void addUse(const DocumentedItem& item, bool isList) {
        if (item.name.empty() || isList)
            return;
        DocumentedUse& use = uses_[item.name];
        use.name = item.name;
        if (use.meaning.empty())
            use.meaning = item.meaning;
        const std::size_t message = facts_.messages.size();
        if (use.messages.empty() || use.messages.back() != message)
            use.messages.push_back(message);
    }

    void linkReplies() {
        std::map<std::pair<int, int>, std::vector<std::size_t>> byNumber;
        for (std::size_t at = 0; at < numbers_.size(); ++at)
            byNumber[numbers_[at]].push_back(at);
        for (std::size_t at = 0; at < numbers_.size(); ++at) {
            const auto [stream, function] = numbers_[at];
            if (stream < 0 || function <= 0)
                continue;
            const auto found = byNumber.find({stream, function % 2 == 1 ? function + 1 : function - 1});
            if (found == byNumber.end())
                continue;
            const DirectionSet own = DirectionSet::of(facts_.messages[at].direction);
            for (const std::size_t other : found->second) {
                const DirectionSet back = DirectionSet::of(facts_.messages[other].direction);
                if ((own.toHost && back.toEquipment) || (own.toEquipment && back.toHost))
                    facts_.messages[at].replies.push_back(other);
            }
        }
    }

    void addTransaction(const TRMessageRecord& record) {
        const auto place = places_.find(upper(record.SECSMessage()));
        if (place == places_.end())
            return;
        DocumentedTransaction transaction;
        transaction.name = record.Name();
        transaction.isToHost = record.Direction() == kToHost;
        transaction.isReceived = record.Direction() == project_.model->ReceivedDirection();
        if (transaction.isReceived && !isDefaultCondition(record.Condition()))
            transaction.condition = record.Condition();
        for (const auto& item : record.TRItems())
            transaction.values.push_back(valueOf(*item));
        if (!transaction.isReceived && record.DataBlock())
            addSentValues(*record.DataBlock(), transaction);
        facts_.messages[place->second].transactions.push_back(std::move(transaction));
    }

    static DocumentedValue valueOf(const TRItemRecord& item) {
        DocumentedValue value{item.Name(), item.Value(), {}};
        if (!isBlank(item.StatementText()) && item.StatementText() != kNoStatements)
            value.statements = split(item.StatementText(), "\r\n");
        return value;
    }

    static void addSentValues(const SECSMessageRecord& block, DocumentedTransaction& transaction) {
        for (const SECSItemRecord& item : block.getItems())
            if (!item.getName().empty() && item.getType() != "L")
                transaction.values.push_back({item.getName(), item.getValue(), {}});
    }

    void addSequences() {
        for (const SequenceRow& row : project_.sequences.rows()) {
            if (row.isHead()) {
                facts_.sequences.push_back({row.text, {}});
                continue;
            }
            if (facts_.sequences.empty())
                continue;
            DocumentedStep step{row.transactionName, {}, std::string::npos, row.direction == "ToHost"};
            const TRMessageRecord* record = project_.model->getTRMessage(row.transactionName);
            const auto place = record == nullptr ? places_.end() : places_.find(upper(record->SECSMessage()));
            if (record != nullptr)
                step.isToHost = record->Direction() == kToHost;
            if (place != places_.end()) {
                step.message = place->second;
                step.streamFunction = facts_.messages[place->second].streamFunction;
            }
            facts_.sequences.back().steps.push_back(std::move(step));
        }
    }

    const Project& project_;
    PublishedStandard standard_;
    InterfaceFacts facts_;
    std::map<std::string, std::size_t> places_; // by upper-cased name
    std::vector<std::pair<int, int>> numbers_;  // stream and function of each message
    std::map<std::string, DocumentedUse> uses_;
};

} // namespace

InterfaceFacts interfaceFacts(const Project& project, std::string title) {
    return FactGatherer(project, std::move(title)).run();
}

} // namespace zb
