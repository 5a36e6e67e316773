#include "generate/generator_program.h"

#include "generate/folder_replacement.h"
#include "generate/generator_run.h"
#include "platform/printable.h"
#include "platform/setting_names.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "platform/version.h"

#include <map>
#include <ostream>

namespace zb::generate {

namespace {

constexpr std::string_view kGenerateMark = "73";
constexpr int kDone = 0;
constexpr int kFault = 1;
constexpr int kUsage = 2;
constexpr int kFileFault = 3;

constexpr std::string_view kHelp =
    "Usage: ZeltoGenerator PROJECT.zbp\n"
    "Write the source of a driver plug-in into the folder ZeltoPlugIn/LANGUAGE next to the project.\n"
    "\n"
    "Options:\n"
    "  -h, --help   Print this text and exit\n"
    "  --version    Print the version and exit\n"
    "\n"
    "Settings:\n"
    "  PlugInType   4 is Java, 5 is C#; with 1 to 3 it is C++20, since ActiveX is not offered\n"
    "  SRCGen       73 writes; with anything else the output lists what would be written\n";

struct Choice {
    std::string language = "cpp";
    std::string remark; ///< why it is not what the setting asks for
};

Choice choose(const std::string& type) {
    struct Kind {
        std::string_view type;
        std::string language;
        std::string title;
    };
    static const Kind kKinds[] = {{"1", "", "ActiveX"},
                                  {"2", "", "ActiveX"},
                                  {"3", "", "ActiveX"},
                                  {"4", "java", "Java"},
                                  {"5", "csharp", "C#"}};
    for (const Kind& kind : kKinds) {
        if (kind.type != type)
            continue;
        if (isLanguage(kind.language))
            return {kind.language, {}};
        return {"cpp", kind.title + " is not offered by this generator; the plug-in is written in C++20."};
    }
    return {"cpp", "PlugInType names no kind of plug-in; the plug-in is written in C++20."};
}

/// The files at the top, and the folders with the number of their files.
void listFiles(const std::vector<GeneratedFile>& files, std::ostream& out) {
    std::map<std::string, std::size_t> folders;
    for (const GeneratedFile& file : files) {
        const std::size_t slash = file.path.find('/');
        if (slash == std::string::npos)
            out << "  " << file.path << '\n';
        else
            ++folders[file.path.substr(0, slash + 1)];
    }
    for (const auto& [folder, count] : folders)
        out << "  " << folder << " (" << count << (count == 1 ? " file)\n" : " files)\n");
}

int generate(const ProjectFile& file, const ProjectPlace& place, const std::string& type, bool writes,
             const CodePage& codePage, std::ostream& out) {
    const Choice choice = choose(type);
    if (!choice.remark.empty())
        out << choice.remark << '\n';
    const Generation generation =
        generatePlugIn(file.project, place.name, Language(choice.language), codePage);
    const std::string folder = usualFolder(place, choice.language);
    for (const std::string& note : generation.notes)
        out << printable(note) << '\n';
    if (writes) {
        if (const Result<void> written = replaceFolder(folder, generation.files); !written) {
            out << printable(folder) << ": cannot be written: " << printable(written.error().description)
                << '\n';
            return kFileFault;
        }
    }
    out << (writes ? "Written: " : "Would be written, with the option Generate Source: ") << printable(folder)
        << '\n'
        << summaryOf(generation) << '\n';
    listFiles(generation.files, out);
    return kDone;
}

} // namespace

int runGeneratorProgram(const std::vector<std::string>& arguments, const SettingsStore& settings,
                        const CodePage& codePage, std::ostream& out) {
    if (arguments.size() != 1) {
        out << "usage: ZeltoGenerator PROJECT.zbp\n";
        return kUsage;
    }
    const std::string& path = arguments.front();
    if (path == "-h" || path == "--help") {
        out << kHelp;
        return kDone;
    }
    if (path == "--version") {
        out << "ZeltoGenerator " << kVersion << '\n';
        return kDone;
    }
    const Result<ProjectFile> file = readProjectFile(path);
    if (!file) {
        out << printable(path) << ": cannot be read: " << printable(file.error().description) << '\n';
        return kFileFault;
    }
    if (!file->fault.empty()) {
        out << printable(path) << ": not a project file: " << printable(file->fault) << '\n';
        return kFault;
    }
    const std::string type = trim(settings.readRegValue(kSettingsKey, kPlugInType));
    const bool writes = trim(settings.readRegValue(kSettingsKey, kSrcGen)) == kGenerateMark;
    return generate(*file, splitProjectPath(path), type, writes, codePage, out);
}

} // namespace zb::generate
