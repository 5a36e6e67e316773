#include "console/compared_project.h"

#include "console/git.h"
#include "console/message_source.h"
#include "messages/smd/smd_text.h"
#include "platform/file_layer.h"
#include "platform/printable.h"
#include "platform/text_file.h"
#include "platform/user_folders.h"
#include "project/project_files.h"
#include "project/project_history.h"
#include "project/project_text.h"

#include <algorithm>
#include <charconv>
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

std::optional<ComparedProject> loadLibrary(const std::string& name, ConsoleStreams streams) {
    MessageSource library;
    const int status = library.load(name, streams);
    if (status != kExitDone && library.messages().empty())
        return std::nullopt;
    reportColons(library.messages(), name, streams.err);
    ComparedProject compared;
    compared.project.messages = ProjectMessages(composeSmd(library.messages(), SmdForm::Project));
    compared.scope = CompareScope::Messages;
    return compared;
}

/// The number after the last "@" of a name; 0 when there is none.
int versionIn(const std::string& name) {
    const std::size_t at = name.rfind('@');
    int number = 0;
    if (at == std::string::npos || at == 0)
        return 0;
    const char* end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data() + at + 1, end, number);
    return error == std::errc() && stop == end && number > 0 ? number : 0;
}

std::optional<ComparedProject> loadVersion(const std::string& name, int number, ConsoleStreams streams) {
    SystemFileLayer files;
    const auto versions = ProjectHistory(files, stateFolder()).versions(name.substr(0, name.rfind('@')));
    const auto found = std::find_if(versions.begin(), versions.end(),
                                    [number](const auto& version) { return version.number == number; });
    if (found == versions.end())
        return refuse(streams, name, "cannot be read: there is no version " + std::to_string(number));
    return loadFile(name, found->path.string(), streams);
}

std::optional<ComparedProject> loadRevision(const std::string& name, ConsoleStreams streams) {
    const SourceKind kind = sourceKind(name);
    if (kind == SourceKind::Smd || kind == SourceKind::Mdf || kind == SourceKind::Sml)
        return refuse(streams, name, "cannot be read: only projects are read from a git revision");
    const auto bytes = readGitObject(name);
    if (!bytes)
        return refuse(streams, name, "cannot be read: " + bytes.error().text);
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
        if (const int number = versionIn(name); number > 0)
            return loadVersion(name, number, streams);
        if (name.find(':') != std::string::npos)
            return loadRevision(name, streams);
    }
    const SourceKind kind = sourceKind(name);
    if (kind == SourceKind::Project || kind == SourceKind::Unknown)
        return loadFile(name, name, streams);
    return loadLibrary(name, streams);
}

} // namespace zb
