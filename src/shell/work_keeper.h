#pragma once

#include "platform/result.h"
#include "project/project_session.h"
#include "project/shared_note.h"

#include <chrono>
#include <cstddef>
#include <future>
#include <optional>
#include <string>

namespace zb {

class Application;
class CodePage;
struct LoadedProject;
struct ApplicationFolders;

/// Keeps the unsaved work of the open project in the state folder, so that a kill or a crash loses little of
/// it, and offers what a killed program has left.
class WorkKeeper {
public:
    /// The longest loss is this and the time of one writing; together they are less than 30 seconds.
    static constexpr std::chrono::seconds kInterval{25};

    WorkKeeper(Application& application, const ApplicationFolders& folders);
    /// Waits for the work that is being written. What is kept stays.
    ~WorkKeeper();
    WorkKeeper(const WorkKeeper&) = delete;
    WorkKeeper& operator=(const WorkKeeper&) = delete;

    /// The program has started: what killed programs have left is offered, and the work is kept from now on.
    void start();
    /// Tells apart what was saved and what is open.
    struct Fingerprint {
        std::size_t size = 0;
        std::size_t hash = 0;
        bool operator==(const Fingerprint&) const = default;
    };
    using OptionalFingerprint = std::optional<Fingerprint>;
    /// Of a project that is not open yet, on any thread.
    static Fingerprint fingerprintOf(const LoadedProject& project, const CodePage& codePage);

    /// A project was created, opened, or moved to another place by Save As. Without the fingerprint of what
    /// is open it is taken now, which takes long in a large project.
    void projectOpened(const OptionalFingerprint& work = {});
    /// The project file holds this text.
    void projectSaved(std::string_view text);
    /// What is open is what the file holds.
    void takeAsSaved() { saved_ = fingerprintOf(composeWork()); }
    /// No project is open any more, and the user knows: nothing is kept of the last one.
    void projectClosed();

    /// Returns when the work that is being written is kept.
    void finishWriting();
    /// The program is about to end without being asked: keeps the work at once.
    void keepNow();
    /// The text of the open project, as a save would write it. Nothing in the windows changes.
    std::string composeWork() const;
    /// Whether that is what the file holds.
    bool isSaved() const;

    /// The prompt before another command decides about the work anew.
    void promptBegins() { leavesWork_ = false; }
    /// The save of that prompt has failed, and the command goes on all the same. When it closes the project,
    /// the work stays and is offered as that of a killed program.
    void saveFailedAtPrompt();

private:
    /// What came of a keeping, and the work that is kept since; nothing when the work is saved.
    struct Kept {
        Result<void> done;
        OptionalFingerprint kept;
    };

    static Fingerprint fingerprintOf(std::string_view text);
    /// Whether unsaved work was left.
    bool leaveSession();
    void schedule();
    void look();
    void refresh();
    Kept keep(const std::string& work, const OptionalFingerprint& saved, const OptionalFingerprint& kept);
    void take(const Kept& kept);
    void report(const Result<void>& kept);
    void offerOfOtherProjects();
    void lookForOthers();
    void reportOther(const ProjectHolder& other);
    void offer(const SessionTrace& trace);
    void recover(const SessionTrace& trace);
    void compare(const SessionTrace& trace);
    /// Asks what becomes of unsaved work; false when the user cancels.
    bool mayReplace() const;
    void discard(const SessionTrace& trace);

    Application& app_;
    ProjectSession session_;
    SharedNote note_;
    std::string project_; // of the session
    OptionalFingerprint saved_;
    OptionalFingerprint kept_;
    std::future<Kept> writing_;
    int actionsSeen_ = -1;
    bool leavesWork_ = false; // when the project is closed
    bool faultReported_ = false;
};

} // namespace zb
