#include "console/verbs.h"

#include "console/printable.h"
#include "console/project_loading.h"
#include "generate/generator_run.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace zb {

namespace {

/// `zbc generate PROJECT [--lang LANGUAGE] [-o DIR]`
class GenerateVerb final : public Verb {
public:
    std::string name() const override { return "generate"; }
    std::string summary() const override { return "Write the source of a driver plug-in for a project"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    std::string project_;
    std::string language_ = "cpp";
    std::string folder_;
};

} // namespace

std::string GenerateVerb::example() const {
    return R"(zbc generate Etcher.zbp --lang cpp
  Writes the folder ZeltoPlugIn/cpp next to the project, in place of the one that was there, and prints
  its path and what is in it. Files with names *.user.* are kept. README.md in the folder says how to
  build and use the plug-in.)";
}

void GenerateVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "A project *.zbp")->type_name("")->required();
    app.add_option("--lang", language_, "The language: " + generate::languageNames())->type_name("LANGUAGE");
    app.add_option("-o,--out", folder_, "The folder to replace instead")->type_name("DIR");
}

int GenerateVerb::run(ConsoleStreams streams) {
    if (!generate::isLanguage(language_)) {
        streams.err << "zbc: there is no language " << printable(language_) << ", only "
                    << generate::languageNames() << " (see zbc --help)\n";
        return kExitUsage;
    }
    int status = kExitDone;
    const auto file = loadProject(project_, streams, status);
    if (!file)
        return status;
    const ProjectPlace place = splitProjectPath(project_);
    const std::string folder = folder_.empty() ? generate::usualFolder(place, language_) : folder_;
    const auto outcome =
        generate::runGenerator(file->project, place.name, language_, folder, codePageOfUser());
    for (const std::string& note : outcome.notes)
        streams.err << printable(project_) << ": " << printable(note) << '\n';
    if (!outcome.written) {
        streams.err << printable(folder)
                    << ": cannot be written: " << printable(outcome.written.error().description) << '\n';
        return kExitFileFault;
    }
    streams.out << printable(folder) << ": " << outcome.summary << '\n';
    return kExitDone;
}

std::unique_ptr<Verb> makeGenerateVerb() {
    return std::make_unique<GenerateVerb>();
}

} // namespace zb
