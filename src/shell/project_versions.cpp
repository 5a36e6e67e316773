#include "shell/project_versions.h"

#include "controls/desktop.h"
#include "platform/file_replacer.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_files.h"
#include "shell/application.h"

#include <algorithm>
#include <filesystem>

namespace zb {

namespace fs = std::filesystem;

namespace {

constexpr const char* kDisk = "disk";
constexpr const char* kShown = "shown";

std::string nameOf(const std::string& path) {
    return fs::path(path).filename().string();
}

} // namespace

ProjectHistory ProjectVersions::history() const {
    return {app_.files, app_.projects.historyFolder()};
}

std::vector<ProjectHistory::Version> ProjectVersions::versions() {
    return isBlank(app_.ProjectName) ? std::vector<ProjectHistory::Version>()
                                     : versionsOf(app_.projectFilePath());
}

std::vector<ProjectHistory::Version> ProjectVersions::versionsOf(const std::string& path) const {
    return history().versions(path);
}

void ProjectVersions::showEditor() {
    app_.showEditor();
}

void ProjectVersions::showModeler() {
    app_.showModeler();
}

void ProjectVersions::projectOpened(const std::optional<DiskWatch>& seen) {
    watched_ = app_.projectFilePath();
    if (seen)
        watch_ = reported_ = *seen;
    else
        takeAsSeen();
    app_.desktop.withdraw(kDisk);
    app_.frmWorkbench.history.refresh();
}

void ProjectVersions::takeAsSeen() {
    watch_.take(watched_);
    reported_ = watch_;
}

bool ProjectVersions::isChangedOnDisk(const std::string& path) const {
    return path == watched_ && watch_.lookInside() == DiskWatch::State::Changed;
}

void ProjectVersions::userReturned() {
    if (isBlank(app_.ProjectName) || watched_ != app_.projectFilePath() ||
        app_.desktop.modalWindow() != nullptr)
        return;
    const DiskWatch::State state = reported_.look();
    if (state == DiskWatch::State::Same)
        return;
    const bool isGone = state == DiskWatch::State::Gone;
    // Each change is reported once. A save still reports what it replaces, unless the user has decided.
    reported_.take(watched_);
    if (isGone)
        app_.desktop.post({nameOf(watched_) + " was removed by another program",
                           {{"Keep mine", [this] { takeAsSeen(); }}},
                           kDisk,
                           Notice::Stays::UntilClosed});
    else
        offerReload();
}

void ProjectVersions::offerReload() {
    app_.desktop.post({nameOf(watched_) + " was changed by another program",
                       {{"Reload", [this] { reload(); }},
                        {"Compare", [this] { compareWithDisk(); }},
                        {"Keep mine", [this] { takeAsSeen(); }}},
                       kDisk,
                       Notice::Stays::UntilClosed});
}

// The user still has to decide afterwards.
void ProjectVersions::compareWithDisk() {
    app_.comparisons.compareWithFile(watched_, nameOf(watched_) + " on disk");
    offerReload();
}

void ProjectVersions::saved(const std::string& path, std::string_view text, bool replaced) {
    watched_ = path;
    watch_.takeWritten(path, encodeUtf16(text));
    reported_ = watch_;
    app_.desktop.withdraw(kDisk);
    app_.frmWorkbench.history.refresh();
    if (!replaced)
        return;
    const auto kept = versions();
    Notice notice{"The save replaced a change of another program in " + nameOf(path),
                  {},
                  kDisk,
                  Notice::Stays::UntilClosed};
    if (!kept.empty()) {
        notice.text += "; it is kept as version " + std::to_string(kept.back().number);
        notice.actions.push_back(
            {"Bring it back", [this, number = kept.back().number] { bringBack(number); }});
    }
    app_.desktop.post(std::move(notice));
}

// What is open may be unsaved, and so in no file. Returns the number of its version, 0 when none is kept.
int ProjectVersions::keepOpenWork() {
    const std::string path = app_.projectFilePath();
    if (const auto kept = history().keepWork(path, encodeUtf16(app_.work.composeWork())); !kept) {
        app_.desktop.post({"What was open cannot be kept as a version: " + kept.error().description});
        return 0;
    }
    const auto all = versions();
    return all.empty() ? 0 : all.back().number;
}

Project ProjectVersions::content() const {
    return app_.content.content();
}

void ProjectVersions::replaceContent(Project content, const std::string& step) {
    app_.content.replace(std::move(content), step);
}

bool ProjectVersions::show(const std::string& path, const Replacement& replacement) {
    Result<ProjectFile> file = readProjectFile(path);
    if (!file || !file->fault.empty()) {
        app_.desktop.post(
            {nameOf(path) + " cannot be shown: " + (file ? file->fault : file.error().description)});
        return false;
    }
    const int number = keepOpenWork();
    replaceContent(std::move(file).value().project, replacement.step);
    shownBy_ = replacement.step;
    Notice notice{replacement.notice, {}, kShown};
    if (number != 0)
        notice.actions.push_back({"Bring back what was open", [this, number] { bringBack(number); }});
    app_.desktop.post(std::move(notice));
    app_.frmWorkbench.history.refresh();
    return true;
}

void ProjectVersions::stepUndone(const std::string& step) {
    if (step == shownBy_)
        app_.desktop.withdraw(kShown);
}

void ProjectVersions::reload() {
    const std::string name = nameOf(watched_);
    if (!show(watched_, {"Reload " + name, "Reloaded " + name}))
        return;
    takeAsSeen();
    app_.work.takeAsSaved();
    app_.markSaved();
}

void ProjectVersions::restoreVersion(const ProjectHistory::Version& version) {
    const std::string number = std::to_string(version.number);
    show(version.path.string(),
         {"Restore version " + number, "Version " + number + " is shown; it is not saved yet"});
}

void ProjectVersions::bringBack(int number) {
    const auto all = versions();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto& version) { return version.number == number; });
    if (found != all.end())
        restoreVersion(*found);
    else
        app_.desktop.post({"Version " + std::to_string(number) + " is no longer kept"});
}

// The copy is in a folder of its own, since a project makes folders beside its file.
void ProjectVersions::openBeside(const ProjectHistory::Version& version) {
    constexpr auto kReadOnly = fs::perms::owner_read;
    const std::string name = app_.ProjectName + "_version" + std::to_string(version.number);
    const fs::path folder = fs::path(app_.folders().state) / "beside" / name;
    const fs::path copy = folder / (name + ".zbp");
    std::error_code error;
    fs::create_directories(folder, error);
    fs::permissions(folder, fs::perms::owner_all, error);
    fs::remove(copy, error);
    const Result<std::string> bytes = readBytes(version.path);
    const Result<void> written = bytes ? replacePrivateFile(app_.files, copy, *bytes) : bytes.error();
    if (!written) {
        app_.desktop.post({"Version " + std::to_string(version.number) +
                           " cannot be copied: " + written.error().description});
        return;
    }
    fs::permissions(copy, kReadOnly, error);
    if (!onOpenBeside || !onOpenBeside(copy.string()))
        app_.desktop.post({"The copy of version " + std::to_string(version.number) + " is " + copy.string()});
}

} // namespace zb
