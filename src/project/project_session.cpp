#include "project/project_session.h"

#include "platform/file_layer.h"
#include "platform/file_replacer.h"
#include "platform/process_start.h"
#include "platform/text_file.h"
#include "platform/this_host.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdint>

namespace zb {

namespace fs = std::filesystem;

namespace {

constexpr const char* kNote = "session";
constexpr const char* kWork = "work.zbp";
constexpr int kMostAtOnce = 1000;

// Process with its start, host, and path of the project, each on a line of its own; the path is last and may
// hold anything.
std::string noteOf(long process, const std::string& project) {
    return std::to_string(process) + " " + std::to_string(processStart(process).value_or(0)) + "\n" +
           hostName() + "\n" + project;
}

// Where folders cannot be locked, as in some network file systems, a program of this machine is recognised by
// its process, and one of another machine by its note, which it writes again from time to time.
bool mayRun(const SessionTrace& trace, std::uint64_t start) {
    constexpr std::chrono::minutes kSilence{2};
    if (trace.host == hostName())
        return processStart(trace.process) == start;
    std::error_code error;
    const auto written = fs::last_write_time(trace.folder / kNote, error);
    return !error && fs::file_time_type::clock::now() - written < kSilence;
}

} // namespace

ProjectSession::ProjectSession(FileLayer& files, const fs::path& stateFolder)
    : files_(files), root_(stateFolder.empty() ? fs::path() : stateFolder / "sessions") {}

Result<void> ProjectSession::enter(const std::string& project) {
    leave();
    if (root_.empty())
        return {};
    std::error_code error;
    fs::create_directories(root_, error);
    fs::permissions(root_, fs::perms::owner_all, error);
    const std::string process = std::to_string(files_.processId());
    for (int number = 1; number <= kMostAtOnce; ++number) {
        const fs::path folder = root_ / (process + "-" + std::to_string(number));
        const Result<void> made = files_.makeFolder(folder, 0700);
        if (!made && made.error().number == EEXIST)
            continue;
        if (!made)
            return made.error();
        auto lock = std::make_unique<FolderLock>(folder, std::chrono::milliseconds(0));
        if (const auto noted =
                replacePrivateFile(files_, folder / kNote, noteOf(files_.processId(), project));
            !noted) {
            removeFolder(folder);
            return noted.error();
        }
        folder_ = folder;
        project_ = project;
        lock_ = std::move(lock);
        return {};
    }
    return systemError(EEXIST);
}

void ProjectSession::refresh() {
    if (lock_ != nullptr && !lock_->isHeld())
        static_cast<void>(replacePrivateFile(files_, folder_ / kNote, noteOf(files_.processId(), project_)));
}

void ProjectSession::leave() {
    if (lock_ == nullptr)
        return;
    removeFolder(folder_);
    lock_.reset();
}

Result<void> ProjectSession::keepWork(std::string_view bytes) {
    if (lock_ == nullptr)
        return {};
    return replacePrivateFile(files_, folder_ / kWork, bytes);
}

void ProjectSession::dropWork() {
    std::error_code error;
    if (lock_ != nullptr && fs::exists(folder_ / kWork, error))
        static_cast<void>(files_.remove(folder_ / kWork));
}

std::optional<SessionTrace> ProjectSession::readTrace(const fs::path& folder) const {
    const Result<std::string> note = readBytes(folder / kNote);
    if (!note)
        return std::nullopt;
    const auto first = note->find('\n');
    const auto second = first == std::string::npos ? first : note->find('\n', first + 1);
    if (second == std::string::npos)
        return std::nullopt;
    SessionTrace trace;
    trace.folder = folder;
    const char* end = note->data() + first;
    const auto process = std::from_chars(note->data(), end, trace.process);
    std::uint64_t start = 0;
    if (process.ptr != end)
        std::from_chars(process.ptr + 1, end, start);
    trace.host = note->substr(first + 1, second - first - 1);
    trace.project = note->substr(second + 1);
    const FolderLock lock(folder, std::chrono::milliseconds(0));
    trace.isRunning = lock.isBusy() || (!lock.isHeld() && mayRun(trace, start));
    std::error_code error;
    if (fs::is_regular_file(folder / kWork, error)) {
        trace.work = folder / kWork;
        trace.workTime = fs::last_write_time(trace.work, error);
    }
    return trace;
}

std::vector<SessionTrace> ProjectSession::others() {
    std::vector<SessionTrace> found;
    std::error_code error;
    for (fs::directory_iterator at(root_, error); !root_.empty() && !error && at != fs::directory_iterator();
         at.increment(error)) {
        if (lock_ != nullptr && at->path() == folder_)
            continue;
        std::optional<SessionTrace> trace = readTrace(at->path());
        // A program that has just made the folder has not written its note yet.
        if (!trace)
            continue;
        if (!trace->isRunning && trace->work.empty())
            removeFolder(trace->folder);
        else
            found.push_back(std::move(*trace));
    }
    std::sort(found.begin(), found.end(), [](const SessionTrace& left, const SessionTrace& right) {
        return left.project != right.project ? left.project < right.project : left.workTime > right.workTime;
    });
    std::vector<SessionTrace> kept;
    std::string lastKilled;
    for (SessionTrace& trace : found) {
        if (!trace.isRunning && trace.project == lastKilled) {
            removeFolder(trace.folder);
            continue;
        }
        if (!trace.isRunning)
            lastKilled = trace.project;
        kept.push_back(std::move(trace));
    }
    return kept;
}

void ProjectSession::remove(const SessionTrace& trace) {
    if (const auto now = readTrace(trace.folder); now && !now->isRunning)
        removeFolder(trace.folder);
}

// The note goes last: while there is one, the rest is not forgotten.
void ProjectSession::removeFolder(const fs::path& folder) {
    std::error_code error;
    std::vector<fs::path> inside;
    for (fs::directory_iterator at(folder, error); !error && at != fs::directory_iterator();
         at.increment(error)) {
        if (at->path().filename() != kNote)
            inside.push_back(at->path());
    }
    inside.push_back(folder / kNote);
    for (const fs::path& file : inside)
        static_cast<void>(files_.remove(file));
    fs::remove(folder, error);
}

} // namespace zb
