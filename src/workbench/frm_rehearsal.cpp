#include "workbench/frm_rehearsal.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "platform/printable.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "project/project_text.h"
#include "rehearsal/typed_message.h"
#include "workbench/destination.h"
#include "workbench/frm_workbench.h"
#include "workbench/open_project.h"

#include <filesystem>
#include <utility>

namespace zb {

namespace {

using namespace std::chrono_literals;

// A window that is busy for longer answers late. The last piece of a slice may take some time, too.
constexpr std::chrono::milliseconds kSlice = 5ms;
constexpr int kDeviationKey = 118; // F7
constexpr const char* kTopic = "recording";

std::string counted(std::size_t number, const std::string& thing) {
    return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

} // namespace

frmRehearsal::frmRehearsal(Desktop& desktop, OpenProject& project, frmWorkbench& workbench)
    : Window(desktop, "frmRehearsal"), project_(project), workbench_(workbench),
      slices_(
          desktop, kSlice, [this] { return work(); }, [this] { afterSlice(); }) {
    setCaption("Rehearsal");
    setFrame(workbench.services().mainWindow);
    cmdFirst.setToolTip("Go to the first message");
    cmdBack.setToolTip("Go to the message before this one (Alt+Up)");
    cmdForward.setToolTip("Go to the next message (Alt+Down)");
    cmdPreviousDeviation.setToolTip("Go to the message before this one that is not as modelled (Shift+F7)");
    cmdNextDeviation.setToolTip("Go to the next message that is not as modelled (F7)");
    cmdGoDefinition.setToolTip("Show the definition of the selected message in the editor");
    cmdGoTRMessage.setToolTip("Show the TR message of the selected message in the modeler");
    txtTyped.setToolTip("One message, such as S6F11 W <L <U4 4001>>.");
    cmdTryTyped.setToolTip("Judge this message as if it came after those that are listed");
    cmdForgetTyped.setToolTip("Remove the messages that were typed from the list");
    wire();
    wireLists();
    addKeys();
    showDetails();
}

void frmRehearsal::wire() {
    recording.onRead = [this] { read(); };
    recording.folder = [this] { return workbench_.services().state.ProjectPath; };
    cmdFirst.onClick = [this] { moveTo(timeline.first()); };
    cmdBack.onClick = [this] { move(Way::Back, Stop::Message); };
    cmdForward.onClick = [this] { move(Way::On, Stop::Message); };
    cmdPreviousDeviation.onClick = [this] { move(Way::Back, Stop::Deviation); };
    cmdNextDeviation.onClick = [this] { move(Way::On, Stop::Deviation); };
    cmdGoDefinition.onClick = [this] { goToDefinition(); };
    cmdGoTRMessage.onClick = [this] { goToTRMessage(nameOfTRMessage()); };
    cmdTryTyped.onClick = [this] { tryTyped(); };
    cmdForgetTyped.onClick = [this] { forgetTyped(); };
    cmdForgetTyped.setEnabled(false);
    txtTyped.onChange = [this] {
        lblTypedFault.setText({});
        cmdTryTyped.setEnabled(!isBlank(txtTyped.text()));
    };
    cmdTryTyped.setEnabled(false);
}

void frmRehearsal::wireLists() {
    timeline.onSelect = [this] { showDetails(); };
    timeline.onRestart = [this] {
        if (timeline_.size() > 0)
            slices_.schedule();
    };
    const auto goOn = [this] {
        if (!nameOfTRMessage().empty())
            goToTRMessage(nameOfTRMessage());
        else
            goToDefinition();
    };
    const auto onEnter = [](List& list, const std::function<void()>& go) {
        list.onDoubleClick = [go](ListRow& /*row*/) { go(); };
        list.onKeyDown = [go](KeyEvent key) {
            if (key.code == kKeyEnter)
                go();
        };
    };
    onEnter(timeline.lvwTimeline, goOn);
    onEnter(details.lvwItems, [this] { goToDefinition(); });
    onEnter(details.lvwConditions, [this] { goToTRMessage(details.transactionOfCondition()); });
    onEnter(details.lvwSequence, [this] {
        if (const auto message = details.messageOfStep())
            timeline.select(*message);
    });
}

void frmRehearsal::addKeys() {
    // Alt+Down opens the list of the combo.
    std::vector<const Control*> steppers;
    for (const Control* control : controls())
        if (control != &recording.cboSide)
            steppers.push_back(control);
    const auto add = [&](KeyEvent pressed, const char* purpose, Way way, Stop stop) {
        KeyCommand command;
        command.key = pressed;
        command.place = {this, stop == Stop::Message ? steppers : std::vector<const Control*>()};
        command.where = "the rehearsal";
        command.purpose = purpose;
        command.run = [this, way, stop] {
            move(way, stop);
            return true;
        };
        desktop().keys().add(std::move(command));
    };
    add({kDeviationKey, 0}, "Goes to the next message that is not as modelled", Way::On, Stop::Deviation);
    add({kDeviationKey, kShiftKey}, "Goes to the previous message that is not as modelled", Way::Back,
        Stop::Deviation);
    add({kKeyDown, kAltKey}, "Goes to the next message", Way::On, Stop::Message);
    add({kKeyUp, kAltKey}, "Goes to the previous message", Way::Back, Stop::Message);
}

void frmRehearsal::open() {
    if (isBlank(project_.name())) {
        desktop().post({"Open a project first: recordings run through its model", {}, kTopic});
        return;
    }
    projectIsOld_ = true;
    slices_.schedule();
    show();
}

void frmRehearsal::forget() {
    if (visible())
        hide();
    timeline_.clear();
    judgedBy_.clear();
    newText_.reset();
    newProject_.reset();
    cmdForgetTyped.setEnabled(false);
    setTitleNote({});
    timeline.restart();
    showDetails();
}

void frmRehearsal::projectStepped() {
    if (!visible())
        return;
    projectIsOld_ = true;
    slices_.scheduleAfter(pause_);
}

void frmRehearsal::read() {
    if (isBlank(recording.path()))
        return;
    std::optional<rehearsal::RecordingOptions> options = recording.options();
    if (!options)
        return;
    options->usualWriter = sideOf(workbench_.services().state.ProjectType);
    const std::string name = std::filesystem::path(recording.path()).filename().string();
    std::optional<Result<rehearsal::KeptRecording>> kept;
    const bool done = desktop().screen().doLongWork("Reading " + name, [&](const Progress& progress) {
        options->progress = progress;
        kept = rehearsal::keepRecording(recording.path(), *options);
    });
    if (!done)
        return;
    // What was shown before stays when there is nothing to show.
    if (!*kept)
        desktop().post({name + " cannot be read: " + kept->error().description, {}, kTopic});
    else if ((*kept)->messages.empty() && !(*kept)->faults.empty())
        desktop().post(
            {name + " cannot be read: " + (*kept)->faults.front().place + ": " + (*kept)->faults.front().text,
             {},
             kTopic});
    else if ((*kept)->messages.empty())
        desktop().post({name + ": no message was found", {}, kTopic});
    else
        take(name, std::move(*kept).value());
}

void frmRehearsal::take(const std::string& name, rehearsal::KeptRecording kept) {
    const std::size_t count = kept.messages.size();
    timeline_.open(std::move(kept.messages));
    cmdForgetTyped.setEnabled(false);
    setTitleNote(name);
    timeline.restart();
    timeline.select(0);
    timeline.lvwTimeline.setFocus();
    if (kept.isCut)
        desktop().post({name + " is cut: only its first " + counted(count, "message") + " are shown",
                        {},
                        kTopic,
                        Notice::Stays::UntilClosed});
    if (!kept.faults.empty())
        desktop().post({name + ": " + counted(kept.faultCount, "part") + " cannot be read; " +
                            kept.faults.front().place + ": " + kept.faults.front().text,
                        {},
                        "unreadable parts"});
    if (!kept.isCut && kept.faults.empty())
        desktop().post({name + ": " + counted(count, "message"), {}, kTopic});
}

void frmRehearsal::tryTyped() {
    auto typed = rehearsal::readTypedMessage(txtTyped.text());
    if (const auto* fault = std::get_if<rehearsal::TypedFault>(&typed)) {
        lblTypedFault.setText(printable(fault->place()));
        return;
    }
    lblTypedFault.setText({});
    timeline_.addTyped(std::get<rehearsal::RecordedMessage>(std::move(typed)));
    cmdForgetTyped.setEnabled(true);
    timeline.select(timeline_.size() - 1);
    slices_.schedule();
}

void frmRehearsal::forgetTyped() {
    timeline_.removeTyped();
    cmdForgetTyped.setEnabled(false);
    timeline.restart();
}

// A little of what is left to do: the project first, since all depends on it.
bool frmRehearsal::work() {
    if (visible() && takeProject())
        return true;
    if (!timeline_.isDone()) {
        for (const std::size_t message : timeline_.judgeNext())
            timeline.verdictChanged(message);
        if (timeline_.isDone())
            timeline.allJudged();
        detailsAreOld_ = true;
        return true;
    }
    return timeline.fillNext();
}

/// The three steps of taking the open project over, each of which takes some time in a large project. False
/// when there is none to do.
bool frmRehearsal::takeProject() {
    using Clock = std::chrono::steady_clock;
    constexpr int kPauses = 3;
    if (projectIsOld_ && !slices_.isPausing()) {
        projectIsOld_ = false;
        // What was read but has not judged yet is older than this.
        if (std::exchange(newProject_, std::nullopt))
            judgedBy_.clear();
        newText_ = project_.text();
        if (timeline_.project() != nullptr && *newText_ == judgedBy_)
            newText_.reset();
        return true;
    }
    if (newText_) {
        const Clock::time_point start = Clock::now();
        newProject_ = parseProject(*newText_);
        judgedBy_ = *std::exchange(newText_, std::nullopt);
        pause_ = std::chrono::duration_cast<std::chrono::milliseconds>(kPauses * (Clock::now() - start));
        return true;
    }
    if (!newProject_)
        return false;
    timeline_.judgeBy(*std::exchange(newProject_, std::nullopt), workbench_.services().state.codePage);
    return true;
}

void frmRehearsal::afterSlice() {
    if (timeline_.isDone() && std::exchange(detailsAreOld_, false))
        showDetails();
    else
        showPlace();
}

void frmRehearsal::showDetails() {
    details.show(timeline_, timeline.selected(), workbench_.services().state.codePage);
    cmdGoDefinition.setEnabled(!nameOfDefinition().empty());
    cmdGoTRMessage.setEnabled(!nameOfTRMessage().empty());
    showPlace();
}

void frmRehearsal::showPlace() {
    const std::size_t all = timeline_.size();
    const auto here = timeline.selected();
    std::string text;
    if (!timeline_.isDone())
        text = "Judging " + std::to_string(timeline_.judged()) + " of " + std::to_string(all);
    else if (all > 0)
        text = (here ? std::to_string(*here + 1) + " of " : std::string()) + counted(all, "message") + ", " +
               std::to_string(timeline_.deviations()) + " not as modelled";
    lblPlace.setText(text);
    cmdFirst.setEnabled(timeline.first() && timeline.first() != here);
    cmdBack.setEnabled(here && timeline.first() != here);
    cmdForward.setEnabled(timeline.next(Way::On, Stop::Message).has_value());
    cmdPreviousDeviation.setEnabled(here && timeline.next(Way::Back, Stop::Deviation).has_value());
    cmdNextDeviation.setEnabled(timeline.next(Way::On, Stop::Deviation).has_value());
}

void frmRehearsal::move(Way way, Stop stop) {
    moveTo(timeline.next(way, stop));
}

void frmRehearsal::moveTo(std::optional<std::size_t> message) {
    if (message)
        timeline.select(*message);
}

std::string frmRehearsal::nameOfDefinition() const {
    const auto here = timeline.selected();
    if (!here)
        return {};
    const rehearsal::Interpretation result = timeline_.interpret(*here);
    const SECSMessageRecord* record = result.definition != nullptr ? result.definition : result.nearest;
    return record == nullptr ? std::string() : std::string(record->getName());
}

std::string frmRehearsal::nameOfTRMessage() const {
    const auto here = timeline.selected();
    const std::string* name = here ? timeline_.verdict(*here).transaction : nullptr;
    return name == nullptr ? std::string() : *name;
}

void frmRehearsal::goToDefinition() {
    const std::string name = nameOfDefinition();
    const Node* node = name.empty() ? nullptr : workbench_.services().editor.liveTree().find(name);
    if (node == nullptr)
        return;
    // The user comes back to where the keys step.
    timeline.lvwTimeline.setFocus();
    goTo(workbench_, {Destination::Kind::Node, static_cast<std::size_t>(node->index()), node->text()});
}

void frmRehearsal::goToTRMessage(const std::string& name) {
    if (name.empty())
        return;
    timeline.lvwTimeline.setFocus();
    goTo(workbench_, {Destination::Kind::TRMessage, 0, name});
}

} // namespace zb
