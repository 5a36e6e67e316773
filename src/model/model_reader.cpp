#include "model/model_reader.h"

#include "messages/item_grammar.h"
#include "model/element_lines.h"
#include "model/fact_text.h"
#include "model/tr_message_lines.h"
#include "model/tr_model_store.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zb {

namespace {

std::optional<int> numberOf(std::string_view word) {
    int number = 0;
    const char* end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

/// Collects the facts of one TR item.
class ItemFacts {
public:
    explicit ItemFacts(TRItemRecord& item)
        : item_(item), hasStatements_(!item.StatementText().empty()), hasNode_(item.ConditionNode()) {}

    void take(std::string_view keyword, std::string_view text) {
        if (keyword == "Type" && item_.Type().empty())
            item_.setType(factText(text));
        else if (keyword == "Value" && item_.Value().empty())
            item_.setValue(factText(text));
        else if (keyword == "ABSValue" && item_.ABSValue().empty())
            item_.setABSValue(factText(text));
        else if (keyword == "StatementText")
            takeStatement(text);
        else if (keyword == "Element")
            elements_.take(text);
    }

    void finish() {
        if (!hasStatements_)
            item_.setStatementText(std::move(statements_));
        if (auto node = elements_.finish(); node && !hasNode_)
            item_.setConditionNode(std::move(node));
    }

private:
    void takeStatement(std::string_view line) {
        if (afterStatement_)
            statements_ += "\r\n";
        statements_ += factText(line);
        afterStatement_ = true;
    }

    TRItemRecord& item_;
    bool hasStatements_;
    bool hasNode_;
    bool afterStatement_ = false;
    std::string statements_;
    ElementLines elements_;
};

/// Collects the facts of one data block.
class BlockFacts {
public:
    explicit BlockFacts(std::string head) : head_(std::move(head)) {}

    void take(std::string_view keyword, std::string_view text) {
        if (keyword == "Description" && description_.empty()) {
            description_ = factText(text);
        } else if (keyword == "Item") {
            const int level = std::clamp(countOf(takeWord(text)), 1, kDeepestLevel);
            const std::string item = factText(text);
            // An item is one line of its message, even with a damaged escape.
            if (item.find('\n') == std::string::npos)
                body_.append(std::to_string(level)).append(" ").append(item).append("\r\n");
        }
    }

    SECSMessageRecord finish() const {
        SECSMessageRecord block;
        block.parseTexts(head_, description_, body_);
        return block;
    }

private:
    std::string head_;
    std::string description_;
    std::string body_;
};

/// Reads the lines of the model's section one by one.
class ModelReader {
public:
    explicit ModelReader(TRModelStore& model) : model_(model) {}

    void line(std::string_view line) {
        if (line.starts_with(kTRMessageMarker)) {
            std::string_view name = trimmed(line.substr(kTRMessageMarker.size() - 1));
            takeWord(name);
            openMessage(factText(name));
            return;
        }
        if (message_ == nullptr)
            return;
        std::string_view text = trimmed(line);
        const std::string_view keyword = takeWord(text);
        if (keyword == kEndOfTRMessage)
            closeMessage();
        else if (keyword == "TRItem")
            openItem(factText(text));
        else if (keyword == "EndTRItem")
            closePart();
        else if (keyword == "DataBlock")
            openBlock(factText(text));
        else
            fact(keyword, text);
    }

    void closeMessage() {
        if (message_ != nullptr)
            closePart();
        message_ = nullptr;
    }

    void finish() {
        closeMessage();
        // A message without a direction would not be shown anywhere; its block shows what it was.
        for (TRMessageRecord* message : undirected_)
            message->setDirection(message->DataBlock() ? model_.SentDirection() : model_.ReceivedDirection());
    }

private:
    void openMessage(const std::string& name) {
        closeMessage();
        message_ = model_.getTRMessage(name);
        if (message_ != nullptr)
            return;
        auto message = std::make_unique<TRMessageRecord>();
        message->setName(name);
        message_ = message.get();
        undirected_.push_back(message_);
        model_.addTRMessage(std::move(message));
    }

    void openItem(const std::string& name) {
        closePart();
        TRItemRecord* known = message_->getTRItem(name);
        if (known == nullptr) {
            auto item = std::make_unique<TRItemRecord>();
            item->setName(name);
            known = item.get();
            message_->addTRItem(std::move(item));
        }
        item_.emplace(*known);
    }

    void openBlock(std::string head) {
        if (block_) // the line occurs twice
            return;
        closePart();
        block_.emplace(std::move(head));
    }

    void closePart() {
        if (item_)
            item_->finish();
        if (block_ && !message_->DataBlock())
            message_->setDataBlock(block_->finish());
        item_.reset();
        block_.reset();
    }

    void fact(std::string_view keyword, std::string_view text) {
        if (item_)
            item_->take(keyword, text);
        else if (block_)
            block_->take(keyword, text);
        if (keyword == "SECSMessage" && message_->SECSMessage().empty())
            message_->setSECSMessage(factText(text));
        else if (keyword == "Condition" && message_->Condition().empty())
            message_->setCondition(factText(text));
        else if (keyword == "Report")
            message_->setReport(message_->Report() || text == "True");
        else if (keyword == "Direction")
            takeDirection(numberOf(text));
    }

    void takeDirection(std::optional<int> direction) {
        // Most often it is the last one.
        const auto found = std::find(undirected_.rbegin(), undirected_.rend(), message_);
        if (!direction || found == undirected_.rend())
            return;
        message_->setDirection(*direction);
        undirected_.erase(std::next(found).base());
    }

    TRModelStore& model_;
    TRMessageRecord* message_ = nullptr;       ///< between its first line and its end
    std::vector<TRMessageRecord*> undirected_; ///< their direction is not known yet
    std::optional<ItemFacts> item_;
    std::optional<BlockFacts> block_;
};

} // namespace

void readModel(const std::vector<std::string_view>& parts, TRModelStore& model, const Progress& progress) {
    ModelReader reader(model);
    const std::size_t all = std::accumulate(parts.begin(), parts.end(), std::size_t{0},
                                            [](std::size_t sum, auto part) { return sum + part.size(); });
    std::size_t done = 0;
    for (const std::string_view part : parts) {
        LineReader lines(part);
        while (const auto line = lines.next()) {
            reader.line(*line);
            done += line->size();
            progress.at(done, all);
        }
        reader.closeMessage();
    }
    reader.finish();
}

} // namespace zb
