#include "shell/work_keeper.h"

#include "controls/desktop.h"
#include "messages/smd/smd_writer.h"
#include "platform/local_time.h"
#include "platform/shared_folder.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_files.h"
#include "project/project_history.h"
#include "project/project_text.h"
#include "shell/application.h"

#include <filesystem>
#include <functional>
#include <utility>

namespace zb {

namespace fs = std::filesystem;

namespace {

constexpr const char* kOtherProgram = "other program";

std::string wholePath(const std::string& path) {
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(path, error);
    return error ? path : whole.string();
}

std::string nameOf(const std::string& project) {
    return fs::path(project).stem().string();
}

std::string topicOf(const SessionTrace& trace) {
    return "recover " + trace.folder.string();
}

// A program that runs scripts leaves no trace: its projects go with it.
fs::path sessionFolder(const ApplicationFolders& folders) {
    return folders.scratch.empty() ? fs::path(folders.state) : fs::path();
}

} // namespace

WorkKeeper::WorkKeeper(Application& application, const ApplicationFolders& folders)
    : app_(application), session_(application.files, sessionFolder(folders)),
      note_(application.files, [isKept = !sessionFolder(folders).empty()](const fs::path& folder) {
          return isKept && isSharedFolder(folder);
      }) {}

WorkKeeper::~WorkKeeper() {
    if (writing_.valid())
        writing_.wait();
}

void WorkKeeper::start() {
    offerOfOtherProjects();
    schedule();
}

void WorkKeeper::schedule() {
    app_.desktop.screen().callLater(kInterval, [this] {
        look();
        refresh();
        schedule();
    });
}

// Not while the session is used by the writing.
void WorkKeeper::refresh() {
    if (!writing_.valid())
        session_.refresh();
    note_.refresh();
}

WorkKeeper::Fingerprint WorkKeeper::fingerprintOf(std::string_view text) {
    return {text.size(), std::hash<std::string_view>()(text)};
}

WorkKeeper::Fingerprint WorkKeeper::fingerprintOf(const LoadedProject& project, const CodePage& codePage) {
    NodeTree& tree = *project.tree.nodes;
    const ProjectMessages messages =
        tree.empty() ? ProjectMessages() : ProjectMessages(SmdWriter(codePage).composeForSave(tree));
    const Project& parts = project.project;
    return fingerprintOf(composeStart(parts.side, messages) +
                         composeModelSections(parts.foreign, *parts.model, parts.sequences));
}

std::string WorkKeeper::composeWork() const {
    NodeTree& tree = app_.frmSECSEditor.liveTree();
    const ProjectMessages messages =
        tree.empty() ? ProjectMessages() : ProjectMessages(SmdWriter(app_.codePage).composeForSave(tree));
    const TRModelStore none;
    const TRModelStore& model = app_.TRModelStore == nullptr ? none : *app_.TRModelStore;
    return composeStart(sideOf(app_.ProjectType), messages) +
           composeModelSections(app_.foreign, model, app_.sequences);
}

bool WorkKeeper::isSaved() const {
    return saved_ && *saved_ == fingerprintOf(composeWork());
}

void WorkKeeper::projectOpened(const OptionalFingerprint& work) {
    finishWriting();
    project_ = wholePath(app_.projectFilePath());
    saved_ = work ? *work : fingerprintOf(composeWork());
    kept_.reset();
    actionsSeen_ = app_.desktop.actions();
    const bool hasLeftWork = leaveSession();
    report(session_.enter(project_));
    note_.enter(project_);
    lookForOthers();
    if (hasLeftWork)
        offerOfOtherProjects();
}

void WorkKeeper::saveFailedAtPrompt() {
    keepNow();
    leavesWork_ = kept_.has_value();
}

bool WorkKeeper::leaveSession() {
    const bool leavesWork = std::exchange(leavesWork_, false);
    leavesWork ? session_.abandon() : session_.leave();
    return leavesWork;
}

void WorkKeeper::projectSaved(std::string_view text) {
    finishWriting();
    if (wholePath(app_.projectFilePath()) != project_)
        projectOpened();
    saved_ = fingerprintOf(text);
    kept_.reset();
    session_.dropWork();
}

void WorkKeeper::projectClosed() {
    finishWriting();
    const bool hasLeftWork = leaveSession();
    note_.leave();
    project_.clear();
    saved_.reset();
    kept_.reset();
    if (hasLeftWork)
        offerOfOtherProjects();
}

// Off the event loop but for the text itself, which is made of the stores.
void WorkKeeper::look() {
    using namespace std::chrono_literals;
    const bool isBusy = writing_.valid() && writing_.wait_for(0s) != std::future_status::ready;
    if (!session_.isEntered() || isBusy || app_.desktop.actions() == actionsSeen_)
        return;
    finishWriting();
    actionsSeen_ = app_.desktop.actions();
    writing_ = std::async(std::launch::async, [this, work = composeWork(), saved = saved_, kept = kept_] {
        return keep(work, saved, kept);
    });
}

void WorkKeeper::keepNow() {
    finishWriting();
    if (session_.isEntered())
        take(keep(composeWork(), saved_, kept_));
}

// Runs beside the event loop, while that leaves the session alone.
WorkKeeper::Kept WorkKeeper::keep(const std::string& work, const OptionalFingerprint& saved,
                                  const OptionalFingerprint& kept) {
    const Fingerprint now = fingerprintOf(work);
    if (now == saved) {
        session_.dropWork();
        return {{}, std::nullopt};
    }
    return {now == kept ? Result<void>() : session_.keepWork(encodeUtf16(work)), now};
}

void WorkKeeper::take(const Kept& kept) {
    kept_ = kept.kept;
    report(kept.done);
}

void WorkKeeper::finishWriting() {
    if (writing_.valid())
        take(writing_.get());
}

// Once: the cause, such as a full disk, seldom disappears by itself.
void WorkKeeper::report(const Result<void>& kept) {
    if (kept)
        return;
    kept_.reset();
    actionsSeen_ = -1;
    if (!std::exchange(faultReported_, true))
        app_.desktop.post({"Unsaved work cannot be kept for a recovery: " + kept.error().description});
}

void WorkKeeper::offerOfOtherProjects() {
    for (const SessionTrace& trace : session_.others()) {
        if (!trace.isRunning && trace.project != project_)
            offer(trace);
    }
}

void WorkKeeper::lookForOthers() {
    app_.desktop.withdraw(kOtherProgram);
    for (const ProjectHolder& other : note_.others())
        reportOther(other);
    for (const SessionTrace& trace : session_.others()) {
        if (trace.project != project_)
            continue;
        if (trace.isRunning)
            reportOther({trace.host, trace.process});
        else
            offer(trace);
    }
}

void WorkKeeper::reportOther(const ProjectHolder& other) {
    app_.desktop.post({nameOf(project_) + " is also open in another program (process " +
                           std::to_string(other.process) + " on " + other.host + ")",
                       {},
                       kOtherProgram,
                       Notice::Stays::UntilClosed});
}

void WorkKeeper::offer(const SessionTrace& trace) {
    app_.desktop.post(
        {"Unsaved work on " + nameOf(trace.project) + " of " + localTime(trace.workTime) + " was found",
         {{"Recover", [this, trace] { recover(trace); }},
          {"Compare", [this, trace] { compare(trace); }},
          {"Discard", [this, trace] { discard(trace); }}},
         topicOf(trace),
         Notice::Stays::UntilClosed});
}

void WorkKeeper::recover(const SessionTrace& trace) {
    Result<ProjectFile> work = readProjectFile(trace.work.string());
    if (!work) {
        app_.desktop.post({"The work cannot be read: " + work.error().description});
        return;
    }
    if (!mayReplace()) {
        offer(trace);
        return;
    }
    if (const auto kept = ProjectHistory(app_.files, app_.folders().state).keep(trace.project); !kept)
        app_.desktop.post({"The version on disk cannot be kept: " + kept.error().description});
    app_.projects.openRecovered(trace.project, std::move(work).value().project);
    saved_.reset();
    keepNow();
    // The work of the killed program goes only when it is kept again.
    if (kept_)
        session_.remove(trace);
    app_.desktop.withdraw(topicOf(trace));
    app_.desktop.post({"Recovered " + nameOf(trace.project) + "; it is not saved yet"});
}

bool WorkKeeper::mayReplace() const {
    return isBlank(app_.ProjectName) || isSaved() || app_.projects.mayGoOn();
}

// The project is opened as it is in its file. The user still has to decide afterwards.
void WorkKeeper::compare(const SessionTrace& trace) {
    const bool isOpen = trace.project == project_;
    if (!isOpen && (!mayReplace() || !app_.projects.openFile(trace.project))) {
        offer(trace);
        return;
    }
    app_.comparisons.compareWithFile(trace.work.string(), "unsaved work on " + nameOf(trace.project) +
                                                              " of " + localTime(trace.workTime));
    offer(trace);
}

void WorkKeeper::discard(const SessionTrace& trace) {
    session_.remove(trace);
}

} // namespace zb
