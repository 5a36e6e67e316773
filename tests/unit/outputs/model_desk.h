#pragma once

#include "modeler/frm_tr_modeler.h"
#include "outputs/tmd_document.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "shell/application.h"
#include "support/silent_screen.h"
#include "unit/shell/program.h"

#include <memory>
#include <string>

namespace zb::test {

// A program with a separate model.
class ModelDesk {
public:
    explicit ModelDesk(int projectType = 2,
                       std::unique_ptr<FileLayer> files = std::make_unique<SystemFileLayer>())
        : files_(std::move(files)), program_(*files_) {
        app().ProjectType = projectType;
        app().TRModelStore = std::make_unique<TRModelStore>();
        app().TRModelStore->setProjectType(projectType);
    }

    Application& app() { return program_.application; }
    SilentScreen& screen() { return program_.screen; }

    // A message of Direction 1 goes to the host, one of 2 to the equipment.
    TRMessageRecord& add(const std::string& name, int direction, const std::string& secsMessage,
                         const std::string& condition = {}, bool report = false) {
        auto record = std::make_unique<TRMessageRecord>();
        record->setName(name);
        record->setSECSMessage(secsMessage);
        record->setDirection(direction);
        record->setCondition(condition);
        record->setReport(report);
        TRMessageRecord& added = *record;
        app().TRModelStore->addTRMessage(std::move(record));
        return added;
    }

    static TRItemRecord& addItem(TRMessageRecord& message, const std::string& name,
                                 const std::string& value = {}, const std::string& absValue = {}) {
        auto item = std::make_unique<TRItemRecord>();
        item->setName(name);
        item->setType("NUMERIC");
        item->setValue(value);
        item->setABSValue(absValue);
        TRItemRecord& added = *item;
        message.addTRItem(std::move(item));
        return added;
    }

    void addHead(const std::string& name) { app().frmTRModeler.sequenceView().addSequence(name); }

    void addRow(const std::string& number, const std::string& direction, const std::string& name) {
        zb::Sequences sequences = app().sequences;
        sequences.append({kSequenceItem, number, direction, name});
        app().frmTRModeler.sequenceView().show(std::move(sequences));
    }

    XmlElement compose() { return composeTmd(*app().TRModelStore, app().ProjectType, app().sequences); }

private:
    std::unique_ptr<FileLayer> files_;
    Program program_;
};

} // namespace zb::test
