#pragma once

#include "modeler/modeler_controls.h"
#include "project/module_state.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The checks before a TMD build. A failed check shows its box over the modeler window and marks the faulty
/// places in red.
class TmdChecks {
public:
    /// `showModeler` shows the modeler window, with the store of SECS messages refilled.
    TmdChecks(const ModuleState& state, ModelerControls& window, std::function<void()> showModeler);

    /// Whether the build may continue. The first failed check ends them.
    bool checkTRMessages();
    /// Whether each sequence has a row.
    bool checkSequences();

    /// Whether a TR message has an unknown SECS message; each such message is marked.
    bool checkSECSMessageMissing();
    /// Whether a TR message has no SECS message, or one with the name that means none; each such message is
    /// marked.
    bool checkSECSMessageUnselected();

private:
    using Records = std::vector<const TRMessageRecord*>;

    bool checkDefaults();
    bool markAll(const Records& faulty);
    void mark(const TRMessageRecord& record);
    void markReceived(std::string_view text);
    bool refuse(std::string_view text);
    int receivedDirection() const;

    const ModuleState& state_;
    ModelerControls& window_;
    std::function<void()> showModeler_;
};

} // namespace zb
