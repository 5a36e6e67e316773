#include "generate/generator_run.h"

#include "generate/folder_replacement.h"

#include <algorithm>

namespace zb::generate {

namespace {

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

} // namespace

std::string languageNames() {
    const std::vector<std::string> folders = Language::folders();
    std::string names;
    for (std::size_t index = 0; index < folders.size(); ++index) {
        if (index > 0)
            names += index + 1 == folders.size() ? " and " : ", ";
        names += folders[index];
    }
    return names;
}

bool isLanguage(std::string_view name) {
    const std::vector<std::string> folders = Language::folders();
    return std::find(folders.begin(), folders.end(), name) != folders.end();
}

std::string usualFolder(const ProjectPlace& project, const std::string& language) {
    return joinPath(joinPath(project.folder, "ZeltoPlugIn"), language);
}

std::string summaryOf(const Generation& generation) {
    return counted(generation.files.size(), "file", "files") + ": " +
           counted(generation.messages, "message", "messages") + ", " + std::to_string(generation.received) +
           " received and " + counted(generation.sent, "sent transaction", "sent transactions") + ", " +
           counted(generation.sequences, "sequence", "sequences");
}

GeneratorOutcome runGenerator(const Project& project, const std::string& projectName,
                              const std::string& language, const std::string& folder,
                              const CodePage& codePage) {
    Generation generation = generatePlugIn(project, projectName, Language(language), codePage);
    GeneratorOutcome outcome;
    outcome.written = replaceFolder(folder, generation.files);
    outcome.summary = summaryOf(generation);
    outcome.notes = std::move(generation.notes);
    return outcome;
}

} // namespace zb::generate
