#include "shell/comparisons.h"

#include "compare/conflict_file.h"
#include "compare/part_value.h"
#include "compare/place_following.h"
#include "compare/project_merge.h"
#include "messages/library_store.h"
#include "messages/smd/smd_text.h"
#include "platform/file_access.h"
#include "platform/file_replacer.h"
#include "platform/git.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_files.h"
#include "project/project_text.h"
#include "project/version_name.h"
#include "shell/application.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <tuple>
#include <unordered_map>

namespace zb {

namespace fs = std::filesystem;

namespace {

constexpr const char* kConflictsTopic = "conflicts";

/// The format of a library by the ending of its file; nothing for any other file.
std::optional<int> libraryFormat(const std::string& path) {
    const std::string ending = lower(fs::path(path).extension().string());
    if (ending == ".smd")
        return kFormatSmd;
    if (ending == ".mdf")
        return kFormatMdf;
    return ending == ".sml" ? std::optional(kFormatSml) : std::nullopt;
}

struct ReadFile {
    Project project;
    CompareScope scope = CompareScope::Whole;
    std::string fault; // empty when the file could be read
};

Project projectOf(const SECSLibraryStore::Records& messages) {
    Project project;
    project.messages = ProjectMessages(composeSmd(messages, SmdForm::Project));
    return project;
}

/// Puts messages of a library in the places of those that they are compared with.
class Counterparts {
public:
    explicit Counterparts(const std::vector<SECSMessageRecord>& own) {
        for (const SECSMessageRecord& message : own)
            add(message);
    }

    void put(const SECSMessageRecord& message) {
        const auto place = placeOf(message);
        if (!place) {
            add(message);
            return;
        }
        note(*place, [place](Places& places) { places.erase(*place); });
        messages_[*place] = &message;
        note(*place, [place](Places& places) { places.insert(*place); });
    }
    const SECSLibraryStore::Records& messages() const { return messages_; }

private:
    using Places = std::set<std::size_t>;
    using Likeness = std::tuple<int, int, std::string>;

    static Likeness likenessOf(const SECSMessageRecord& message) {
        return {message.getStream(), message.getFunction(), std::string(message.getDirection())};
    }

    /// The first one with the name, otherwise the only one that is alike.
    std::optional<std::size_t> placeOf(const SECSMessageRecord& wanted) const {
        const auto named = byName_.find(upper(wanted.getName()));
        if (named != byName_.end() && !named->second.empty())
            return *named->second.begin();
        const auto alike = byLikeness_.find(likenessOf(wanted));
        return alike != byLikeness_.end() && alike->second.size() == 1 ? std::optional(*alike->second.begin())
                                                                       : std::nullopt;
    }

    void add(const SECSMessageRecord& message) {
        messages_.push_back(&message);
        note(messages_.size() - 1, [this](Places& places) { places.insert(messages_.size() - 1); });
    }

    template<typename Change>
    void note(std::size_t place, Change change) {
        change(byName_[upper(messages_[place]->getName())]);
        change(byLikeness_[likenessOf(*messages_[place])]);
    }

    SECSLibraryStore::Records messages_;
    std::unordered_map<std::string, Places> byName_;
    std::map<Likeness, Places> byLikeness_;
};

ReadFile readLibrary(std::string bytes, int format, const CodePage& codePage) {
    ReadFile read;
    SECSLibraryStore library(codePage);
    const std::string status = library.loadBytes(std::move(bytes), format);
    read.project = projectOf(library.getMessages());
    read.scope = CompareScope::Messages;
    if (!status.empty())
        read.fault = "no message could be read";
    return read;
}

ReadFile readFile(const std::string& path, const CodePage& codePage, const Progress& progress) {
    if (const auto format = libraryFormat(path)) {
        auto bytes = readBytes(path);
        return bytes ? readLibrary(*std::move(bytes), *format, codePage)
                     : ReadFile{{}, {}, bytes.error().description};
    }
    Result<ProjectFile> file = readProjectFile(path, progress);
    if (!file)
        return {{}, {}, file.error().description};
    std::string fault = std::move(file.value().fault);
    return {std::move(file.value().project), CompareScope::Whole, std::move(fault)};
}

/// A file of a git revision, whose paths begin in the folder.
ReadFile readRevision(const std::string& name, const std::string& folder, const CodePage& codePage,
                      const Progress& progress) {
    auto bytes = readGitObject(name, folder);
    if (!bytes)
        return {{}, {}, bytes.error().text};
    if (const auto format = libraryFormat(name))
        return readLibrary(*std::move(bytes), *format, codePage);
    ProjectText decoded = decodeProject(*std::move(bytes));
    if (decoded.fault.empty() && !hasProjectLine(decoded.text))
        decoded.fault = "it is not a project file";
    return {parseProject(decoded.text, progress), CompareScope::Whole, std::move(decoded.fault)};
}

} // namespace

bool Comparisons::isOpen() const {
    return !isBlank(app_.ProjectName);
}

void Comparisons::report(const std::string& what, const std::string& why) {
    app_.desktop.post({what + " cannot be compared: " + why});
}

void Comparisons::compareWithFile(const std::string& path, const std::string& name) {
    const std::string shown = name.empty() ? fs::path(path).filename().string() : name;
    if (!isOpen()) {
        app_.desktop.post({"Open a project first: it is compared with " + shown});
        return;
    }
    const auto version = isFile(path) ? std::nullopt : versionName(path);
    if (version) {
        compareWithVersionOf(version->path, version->number, shown);
        return;
    }
    ReadFile read;
    const bool done = app_.desktop.screen().doLongWork("Reading " + shown, [&](const Progress& progress) {
        if (isFile(path))
            read = readFile(path, app_.codePage, progress);
        else if (path.find(':') != std::string::npos)
            read = readRevision(path, app_.ProjectPath, app_.codePage, progress);
        else
            read.fault = "there is no such file";
    });
    if (!done)
        return;
    if (read.fault.empty())
        compareWithProject(shown, std::move(read.project), read.scope);
    else
        report(shown, read.fault);
}

void Comparisons::compareWithVersion(int number) {
    compareWithVersionOf(app_.projectFilePath(), number, "Version " + std::to_string(number));
}

void Comparisons::compareWithVersionOf(const std::string& path, int number, const std::string& shown) {
    const auto versions = app_.versions.versionsOf(path);
    const auto found = std::find_if(versions.begin(), versions.end(),
                                    [number](const auto& version) { return version.number == number; });
    if (found == versions.end())
        report(shown, "it is no longer kept");
    else
        compareWithFile(found->path.string(), shown);
}

void Comparisons::compareWithLibrary(const std::string& name,
                                     const std::vector<const SECSMessageRecord*>& messages) {
    compareWithProject(name, projectOf(messages), CompareScope::Messages);
}

void Comparisons::compareWithMessages(const std::string& name,
                                      const std::vector<const SECSMessageRecord*>& messages) {
    if (!isOpen())
        return;
    const std::vector<SECSMessageRecord> own = parseProject(text()).messages.records();
    Counterparts replaced(own);
    for (const SECSMessageRecord* message : messages)
        replaced.put(*message);
    compareWithProject(name, projectOf(replaced.messages()), CompareScope::Messages);
}

void Comparisons::compareWithProject(const std::string& name, Project other, CompareScope scope) {
    if (isOpen())
        app_.frmCompare.compare(
            {{name, std::make_shared<const Project>(std::move(other))}, std::nullopt, scope});
}

std::string Comparisons::conflictsFile() const {
    return app_.projectFilePath() + kConflictsEnding;
}

bool Comparisons::hasConflicts() const {
    return isFile(conflictsFile());
}

std::optional<Comparisons::Conflicts> Comparisons::readConflictsFile() const {
    const auto bytes = readBytes(conflictsFile());
    return bytes ? readConflicts(*bytes) : std::nullopt;
}

void Comparisons::projectOpened() {
    app_.desktop.withdraw(kConflictsTopic);
    const auto conflicts = hasConflicts() ? readConflictsFile() : std::nullopt;
    if (!conflicts || conflicts->empty())
        return;
    const std::string count =
        conflicts->size() == 1 ? "1 conflict" : std::to_string(conflicts->size()) + " conflicts";
    app_.desktop.post({app_.ProjectName + " has " + count + " of a merge",
                       {{"Solve", [this] { solveConflicts(); }}},
                       kConflictsTopic,
                       Notice::Stays::UntilClosed});
}

void Comparisons::solveConflicts() {
    if (const auto conflicts = readConflictsFile())
        showConflicts(*conflicts);
    else
        report(fs::path(conflictsFile()).filename().string(), "it is no list of conflicts");
}

namespace {

/// The merged project with the values of one side in the places of the conflicts.
std::shared_ptr<const Project> withValues(const std::string& merged,
                                          const std::vector<MergeConflict>& conflicts,
                                          std::optional<std::string> MergeConflict::*side,
                                          const Progress& progress) {
    const Project before = parseProject(merged);
    Project project = parseProject(merged);
    for (std::size_t at = 0; at < conflicts.size(); ++at) {
        progress.at(at, conflicts.size());
        // What was set before may have moved the items after it.
        const ValuePlace place = followPlaces(before, project, {placeOfConflict(conflicts[at])}).front();
        if (auto changed = withValue(project, place, conflicts[at].*side))
            project = std::move(changed).value();
    }
    return std::make_shared<const Project>(std::move(project));
}

} // namespace

// The files of the merge are gone: each side is the project with its values.
void Comparisons::showConflicts(const Conflicts& conflicts) {
    app_.desktop.withdraw(kConflictsTopic);
    const std::string merged = text();
    std::shared_ptr<const Project> base;
    std::shared_ptr<const Project> theirs;
    const bool done =
        app_.desktop.screen().doLongWork("Reading the conflicts", [&](const Progress& progress) {
            base = withValues(merged, conflicts, &MergeConflict::base, progress.part(0, 0.5));
            theirs = withValues(merged, conflicts, &MergeConflict::theirs, progress.part(0.5, 1));
        });
    if (done)
        app_.frmCompare.compare(
            {{"Base", base}, ComparedVersion{"Theirs", theirs}, CompareScope::Whole, conflicts});
}

void Comparisons::solveMerge(const std::string& base, const std::string& ours, const std::string& theirs) {
    if (!isOpen())
        return;
    std::array<ReadFile, 3> sides;
    const std::array<const std::string*, 3> paths{&base, &ours, &theirs};
    for (std::size_t side = 0; side < sides.size(); ++side) {
        // Git gives an empty file where a side has no project.
        const auto bytes = readBytes(*paths[side]);
        if (!bytes || !bytes->empty())
            sides[side] = readFile(*paths[side], app_.codePage, {});
        if (!sides[side].fault.empty()) {
            report(*paths[side], sides[side].fault);
            return;
        }
    }
    std::optional<Conflicts> conflicts = readConflictsFile();
    if (!conflicts) {
        ProjectMerge merge = mergeProjects(sides[0].project, sides[1].project, sides[2].project);
        conflicts = std::move(merge.conflicts);
        change(std::move(merge.project), "Merge");
    }
    app_.desktop.withdraw(kConflictsTopic);
    const auto versionOf = [&](const char* name, std::size_t side) {
        return ComparedVersion{name, std::make_shared<const Project>(std::move(sides[side].project))};
    };
    app_.frmCompare.compare(
        {versionOf("Base", 0), versionOf("Theirs", 2), CompareScope::Whole, std::move(*conflicts)});
}

void Comparisons::projectSaved() {
    if (app_.frmCompare.conflicts.empty())
        return;
    const Conflicts undecided = app_.frmCompare.conflicts.undecided();
    const std::string file = conflictsFile();
    const Result<void> written = undecided.empty() ? deleteFileIfExists(app_.files, file)
                                                   : replaceFile(file, composeConflicts(undecided));
    const std::string name = fs::path(file).filename().string();
    if (!written)
        app_.desktop.post({name + " cannot be written: " + written.error().description});
    else if (undecided.empty())
        app_.desktop.post({"All conflicts are solved"});
    if (undecided.empty())
        app_.frmCompare.forget();
}

std::string Comparisons::name() const {
    return app_.ProjectName;
}

std::string Comparisons::text() const {
    return app_.work.composeWork();
}

void Comparisons::change(Project after, const std::string& step) {
    app_.content.replace(std::move(after), step);
}

} // namespace zb
