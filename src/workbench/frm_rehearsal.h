#pragma once

#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"
#include "rehearsal/kept_recording.h"
#include "rehearsal/timeline.h"
#include "workbench/idle_slices.h"
#include "workbench/recording_bar.h"
#include "workbench/rehearsal_details.h"
#include "workbench/timeline_list.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace zb {

class OpenProject;
class frmWorkbench;

/// The document in which a recording runs through the model of the open project: the messages with their
/// verdicts, and what a driver makes of the selected one. A change of the project changes the verdicts, which
/// are worked out between the actions of the user.
class frmRehearsal final : public Window {
public:
    frmRehearsal(Desktop& desktop, OpenProject& project, frmWorkbench& workbench);

    /// Shows the document; a project must be open.
    void open();
    /// Another project is open: what was rehearsed is of no use any more.
    void forget();
    /// The open project may have changed.
    void projectStepped();
    /// Does all that is left to do. For users who wait until it is done.
    void finish() { slices_.finish(); }
    void closeByFrame() override { forget(); }

private:
    rehearsal::Timeline timeline_;

public:
    RecordingBar recording{*this};
    Button cmdFirst{*this, "cmdFirst", "First"};
    Button cmdBack{*this, "cmdBack", "Back"};
    Button cmdForward{*this, "cmdForward", "&Forward"};
    Button cmdPreviousDeviation{*this, "cmdPreviousDeviation", "Previous deviation"};
    Button cmdNextDeviation{*this, "cmdNextDeviation", "&Next deviation"};
    /// The place of the selected message, and how many are not as modelled.
    Label lblPlace{*this, "lblPlace"};
    Button cmdGoDefinition{*this, "cmdGoDefinition", "Go to &definition"};
    Button cmdGoTRMessage{*this, "cmdGoTRMessage", "&Go to TR message"};
    TimelineList timeline{*this, timeline_};
    Label lblTyped{*this, "lblTyped", "&Another message, as SML:"};
    TextField txtTyped{*this, "txtTyped", nullptr, TextField::Lines::Many};
    Button cmdTryTyped{*this, "cmdTryTyped", "What if this &came?"};
    Button cmdForgetTyped{*this, "cmdForgetTyped", "Forget typed messages"};
    Label lblTypedFault{*this, "lblTypedFault"};
    RehearsalDetails details{*this};

private:
    using Way = TimelineList::Way;
    using Stop = TimelineList::Stop;

    void wire();
    void wireLists();
    void addKeys();
    void read();
    void take(const std::string& name, rehearsal::KeptRecording kept);
    void tryTyped();
    void forgetTyped();
    bool work();
    bool takeProject();
    void afterSlice();
    void showDetails();
    void showPlace();
    void move(Way way, Stop stop);
    void moveTo(std::optional<std::size_t> message);
    void goToDefinition();
    void goToTRMessage(const std::string& name);
    std::string nameOfDefinition() const;
    std::string nameOfTRMessage() const;

    OpenProject& project_;
    frmWorkbench& workbench_;
    std::string judgedBy_;               // the text of the project
    std::optional<std::string> newText_; // that has not been read yet
    std::optional<Project> newProject_;  // that does not judge yet
    bool projectIsOld_ = true;
    std::chrono::milliseconds pause_{0}; // after a change, before the project is read
    bool detailsAreOld_ = false;
    IdleSlices slices_;
};

} // namespace zb
