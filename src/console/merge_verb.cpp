#include "console/verbs.h"

#include "compare/conflict_file.h"
#include "compare/project_merge.h"
#include "console/output_guard.h"
#include "console/printable.h"
#include "console/project_loading.h"
#include "platform/file_layer.h"
#include "platform/text_file.h"
#include "platform/user_folders.h"
#include "project/project_file_writer.h"
#include "project/project_text.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <chrono>
#include <ostream>

namespace zb {

namespace {

constexpr std::chrono::seconds kLongestWait{30};

std::string shownValue(const std::optional<std::string>& value) {
    return value ? "\"" + printable(*value) + "\"" : "nothing";
}

/// `FILE: KIND NAME: PATH: FIELD: both sides changed it: ours ..., theirs ...`
void printConflict(std::ostream& err, const std::string& file, const MergeConflict& conflict) {
    err << printable(file) << ": " << wordOf(conflict.kind) << ' ' << printable(conflict.place.name) << ": ";
    for (const std::string* part : {&conflict.place.path, &conflict.field}) {
        if (!part->empty())
            err << printable(*part) << ": ";
    }
    err << "both sides changed it: ours " << shownValue(shownConflictValue(conflict, conflict.ours))
        << ", theirs " << shownValue(shownConflictValue(conflict, conflict.theirs)) << '\n';
}

/// `zbc merge BASE OURS THEIRS -o OUT`
class MergeVerb final : public Verb {
public:
    std::string name() const override { return "merge"; }
    std::string summary() const override { return "Merge what two sides made of one project"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    std::optional<Project> read(const std::string& path, ConsoleStreams streams) const;
    int write(ProjectFileWriter& writer, const OutputGuard& guard, const std::string& text,
              ConsoleStreams streams) const;
    int finish(const std::vector<MergeConflict>& conflicts, ConsoleStreams streams) const;

    std::string base_;
    std::string ours_;
    std::string theirs_;
    std::string out_;
    std::string path_;
    bool takeOurs_ = false;
    bool takeTheirs_ = false;
};

} // namespace

std::string MergeVerb::example() const {
    return R"(zbc merge base.zbp mine.zbp yours.zbp -o Etcher.zbp
  Writes a project with the changes of both sides. Where both changed the same thing differently,
  it has the value of OURS, a line on standard error reports the place and both values, and the file
  Etcher.zbp.conflicts has them as JSON; the exit status is then 1. With --ours or --theirs the
  values of that side are taken, and there are no conflicts.)";
}

void MergeVerb::declare(CLI::App& app) {
    app.add_option("BASE", base_, "The project that both sides began with")->type_name("FILE")->required();
    app.add_option("OURS", ours_, "The project of one side")->type_name("FILE")->required();
    app.add_option("THEIRS", theirs_, "The project of the other side")->type_name("FILE")->required();
    app.add_option("-o,--out", out_, "The merged project; it may be one of the others")
        ->type_name("OUT")
        ->required();
    auto* ours = app.add_flag("--ours", takeOurs_, "Decide conflicts for OURS");
    auto* theirs = app.add_flag("--theirs", takeTheirs_, "Decide conflicts for THEIRS");
    ours->excludes(theirs);
    app.add_option(
           "--path", path_,
           "The project's place in a repository, where OUT is a file of git: it names the conflicts, and "
           "no version of OUT is kept")
        ->type_name("PATH");
}

std::optional<Project> MergeVerb::read(const std::string& path, ConsoleStreams streams) const {
    // Git gives an empty file where one side, or the base, has no project yet.
    if (const auto bytes = readBytes(path); !path_.empty() && bytes && bytes->empty())
        return Project();
    int status = kExitDone;
    auto file = loadProject(path, streams, status);
    return file ? std::optional(std::move(file->project)) : std::nullopt;
}

int MergeVerb::run(ConsoleStreams streams) {
    // From the read to the write: OUT may be one of the sides.
    SystemFileLayer files;
    ProjectFileWriter writer(files, path_.empty() ? stateFolder() : std::filesystem::path(), out_,
                             kLongestWait);
    if (writer.isBusy()) {
        streams.err << printable(out_) << ": cannot be written: another program keeps writing it\n";
        return kExitFileFault;
    }
    const OutputGuard guard(out_);
    const auto base = read(base_, streams);
    const auto ours = read(ours_, streams);
    const auto theirs = read(theirs_, streams);
    if (!base || !ours || !theirs)
        return kExitFileFault;
    const ProjectMerge merge =
        mergeProjects(*base, *ours, *theirs, takeTheirs_ ? Preferred::Theirs : Preferred::Ours);
    const int status = write(writer, guard, composeProject(merge.project), streams);
    if (status != kExitDone)
        return status;
    return finish(takeOurs_ || takeTheirs_ ? std::vector<MergeConflict>() : merge.conflicts, streams);
}

int MergeVerb::write(ProjectFileWriter& writer, const OutputGuard& guard, const std::string& text,
                     ConsoleStreams streams) const {
    if (!guard.isUnchanged()) {
        streams.err << printable(out_) << ": was changed by another program meanwhile: nothing is written\n";
        return kExitFileFault;
    }
    if (const Result<void> written = writer.write(encodeUtf16(text)); !written) {
        streams.err << printable(out_) << ": cannot be written: " << printable(written.error().description)
                    << '\n';
        return kExitFileFault;
    }
    if (!writer.kept())
        reportUnkeptVersion(streams.err, out_, writer.kept().error());
    return kExitDone;
}

/// Writes the conflicts, or removes those of an earlier merge.
int MergeVerb::finish(const std::vector<MergeConflict>& conflicts, ConsoleStreams streams) const {
    const std::string& project = path_.empty() ? out_ : path_;
    const std::string file = project + kConflictsEnding;
    SystemFileLayer files;
    const Result<void> written = writeConflicts(files, file, conflicts);
    for (const MergeConflict& conflict : conflicts)
        printConflict(streams.err, project, conflict);
    if (!written) {
        streams.err << printable(file) << ": cannot be written: " << printable(written.error().description)
                    << '\n';
        return kExitFileFault;
    }
    streams.out << printable(project) << ": " << counted(conflicts.size(), "conflict") << '\n';
    return conflicts.empty() ? kExitDone : kExitFault;
}

std::unique_ptr<Verb> makeMergeVerb() {
    return std::make_unique<MergeVerb>();
}

} // namespace zb
