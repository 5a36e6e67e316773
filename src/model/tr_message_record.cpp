#include "model/tr_message_record.h"

#include "model/data_block_node.h"

namespace zb {

std::unique_ptr<TRItemRecord> TRItemRecord::copy() const {
    auto same = std::make_unique<TRItemRecord>();
    same->setName(Name());
    same->setValue(value_);
    same->setABSValue(absValue_);
    same->setStatementText(statementText_);
    same->setType(type_);
    same->setConditionNode(conditionNode_);
    return same;
}

std::unique_ptr<TRMessageRecord> TRMessageRecord::copy() const {
    auto same = std::make_unique<TRMessageRecord>();
    same->setName(Name());
    same->setSECSMessage(secsMessage_);
    same->setCondition(condition_);
    same->setReport(report_);
    same->setDirection(direction_);
    same->setDataBlock(dataBlock_);
    // As they are, also where a file gave two items one name.
    for (std::size_t i = 0; i < TRItems().size(); ++i)
        same->items_.insertAt(i, TRItems()[i]->copy());
    return same;
}

std::size_t TRMessageRecord::bytes() const {
    // A condition node repeats the statements.
    constexpr std::size_t kNodeSize = 3;
    std::size_t sum = sizeof *this + Name().size() + secsMessage_.size() + condition_.size();
    for (const auto& item : TRItems())
        sum += sizeof *item + item->Name().size() + item->Value().size() + item->ABSValue().size() +
               kNodeSize * item->StatementText().size();
    if (dataBlock_)
        for (const SECSItemRecord& item : dataBlock_->getItems())
            sum += sizeof item + item.getName().size() + item.getValue().size();
    return sum;
}

std::optional<XmlElement> TRMessageRecord::DataBlockNode() const {
    return dataBlock_ ? std::optional(dataBlockNodeOf(*dataBlock_)) : std::nullopt;
}

} // namespace zb
