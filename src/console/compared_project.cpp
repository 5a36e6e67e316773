#include "console/compared_project.h"

#include "console/message_source.h"
#include "messages/smd/smd_text.h"
#include "platform/file_layer.h"
#include "platform/git.h"
#include "platform/printable.h"
#include "platform/text_file.h"
#include "platform/user_folders.h"
#include "project/project_files.h"
#include "project/project_history.h"
#include "project/project_text.h"
#include "project/version_name.h"

#include <algorithm>
#include <ostream>

namespace zb {

namespace {

std::nullopt_t refuse(ConsoleStreams streams, const std::string& name, const std::string& why) {
    streams.err << printable(name) << ": " << printable(why) << '\n';
    return std::nullopt;
}

std::optional<ComparedProject> loadFile(const std::string& name, const std::string& path,
                                        ConsoleStreams streams) {
    Result<ProjectFile> file = readProjectFile(path);
    if (!file)
        return refuse(streams, name, "cannot be read: " + file.error().description);
    if (!file->fault.empty())
        return refuse(streams, name, "not a project file: " + file->fault);
    return ComparedProject{std::move(file.value().project), CompareScope::Whole};
}

/// What a library has given; `status` is what reading it has returned.
std::optional<ComparedProject> takeLibrary(const std::string& name, const MessageSource& library, int status,
                                           ConsoleStreams streams) {
    if (status != kExitDone && library.messages().empty())
        return std::nullopt;
    reportColons(library.messages(), name, streams.err);
    ComparedProject compared;
    compared.project.messages = ProjectMessages(composeSmd(library.messages(), SmdForm::Project));
    compared.scope = CompareScope::Messages;
    return compared;
}

std::optional<ComparedProject> loadVersion(const std::string& name, const VersionName& wanted,
                                           ConsoleStreams streams) {
    SystemFileLayer files;
    const auto versions = ProjectHistory(files, stateFolder()).versions(wanted.path);
    const auto found = std::find_if(versions.begin(), versions.end(),
                                    [&](const auto& version) { return version.number == wanted.number; });
    if (found == versions.end())
        return refuse(streams, name, "cannot be read: there is no version " + std::to_string(wanted.number));
    return loadFile(name, found->path.string(), streams);
}

bool isLibrary(const std::string& name) {
    const SourceKind kind = sourceKind(name);
    return kind == SourceKind::Smd || kind == SourceKind::Mdf || kind == SourceKind::Sml;
}

std::optional<ComparedProject> loadRevision(const std::string& name, ConsoleStreams streams) {
    auto bytes = readGitObject(name);
    if (!bytes)
        return refuse(streams, name, "cannot be read: " + bytes.error().text);
    if (isLibrary(name)) {
        MessageSource library;
        const int status = library.loadBytes(name, *std::move(bytes), streams);
        return takeLibrary(name, library, status, streams);
    }
    const ProjectText decoded = decodeProject(*bytes);
    if (!decoded.fault.empty())
        return refuse(streams, name, "not a project file: " + decoded.fault);
    if (!hasProjectLine(decoded.text))
        return refuse(streams, name,
                      "not a project file: it has neither a project header nor a section of messages");
    return ComparedProject{parseProject(decoded.text), CompareScope::Whole};
}

} // namespace

std::optional<ComparedProject> loadCompared(const std::string& name, ConsoleStreams streams) {
    if (!isFile(name)) {
        if (const auto version = versionName(name))
            return loadVersion(name, *version, streams);
        if (name.find(':') != std::string::npos)
            return loadRevision(name, streams);
    }
    const SourceKind kind = sourceKind(name);
    if (kind == SourceKind::Project || kind == SourceKind::Unknown)
        return loadFile(name, name, streams);
    MessageSource library;
    const int status = library.load(name, streams);
    return takeLibrary(name, library, status, streams);
}

} // namespace zb
