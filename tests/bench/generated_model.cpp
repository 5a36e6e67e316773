#include "bench/generated_model.h"

#include "bench/generated_project.h"
#include "model/tr_message_record.h"
#include "model/tr_model_store.h"
#include "project/project_text.h"

#include <memory>

namespace zb::bench {

namespace {

std::unique_ptr<TRItemRecord> item(int number) {
    auto record = std::make_unique<TRItemRecord>();
    record->setName("ITEM" + std::to_string(number));
    record->setType("STRING");
    record->setValue("PPID1[" + std::to_string(number) + "]");
    record->setABSValue("none");
    record->setStatementText("NONE");
    record->setConditionNode(createElement("Condition"));
    return record;
}

} // namespace

std::string modelText(std::size_t messages, std::size_t secsMessages) {
    constexpr int kItems = 4;
    TRModelStore model;
    for (std::size_t number = 1; number <= messages; ++number) {
        auto record = std::make_unique<TRMessageRecord>();
        record->setName("Received" + std::to_string(number));
        record->setSECSMessage(messageName(number % secsMessages + 1));
        record->setCondition("{CEID} == " + std::to_string(number));
        record->setDirection(kToEquip);
        for (int each = 1; each <= kItems; ++each)
            record->addTRItem(item(each));
        model.addTRMessage(std::move(record));
    }
    return composeModelSections({}, model, {});
}

} // namespace zb::bench
