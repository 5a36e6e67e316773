#pragma once

#include "messages/module_state.h"
#include "model/sequences.h"
#include "model/tr_model_store.h"

#include <memory>

namespace zb {

/// The slots of a running program from the modeler upwards.
struct ModelerState : ModuleState {
    using ModuleState::ModuleState;

    /// Changes the type of the open project, whose model takes part in it.
    void takeProjectType(int type) {
        ProjectType = type;
        if (TRModelStore)
            TRModelStore->setProjectType(type);
    }

    /// Null until a project has been created or opened; replaced by the next one.
    std::unique_ptr<zb::TRModelStore> TRModelStore;
    /// The sequences of the open project; the modeler window shows and changes them.
    Sequences sequences;
};

} // namespace zb
