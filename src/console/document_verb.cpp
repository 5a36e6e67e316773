#include "console/verbs.h"

#include "console/output_guard.h"
#include "console/printable.h"
#include "console/project_loading.h"
#include "document/interface_document.h"
#include "document/interface_facts.h"
#include "platform/file_replacer.h"
#include "platform/text.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <ostream>

namespace zb {

namespace {

/// `zbc document PROJECT.zbp -o FILE.html`
class DocumentVerb final : public Verb {
public:
    std::string name() const override { return "document"; }
    std::string summary() const override { return "Write the interface document of a project"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    bool isMarkdown() const;

    std::string project_;
    std::string out_;
    std::string format_;
};

} // namespace

std::string DocumentVerb::example() const {
    return R"(zbc document Etcher.zbp -o Etcher.html
  Writes the document that one hands to the other side: all messages by stream with direction, W and
  reply, the structure of each with the meaning of its items, the transactions with their conditions,
  the sequences as charts, and an index of the data items. It is one HTML file that needs no other
  and can be printed. The same project gives the same bytes.
zbc document Etcher.zbp --format markdown
  Prints it as Markdown.)";
}

void DocumentVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp")->type_name("FILE")->required();
    app.add_option("-o,--out", out_, "The file to write; standard output without it")->type_name("FILE");
    app.add_option("--format", format_, "html or markdown; without it, as the ending of the file says")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"html", "markdown"}));
}

bool DocumentVerb::isMarkdown() const {
    return format_.empty() ? lower(std::filesystem::path(out_).extension().string()) == ".md"
                           : format_ == "markdown";
}

int DocumentVerb::run(ConsoleStreams streams) {
    if (const std::string why = outputMisuse(out_, {project_}); !why.empty()) {
        streams.err << "zbc: --out: " << why << " (see zbc --help)\n";
        return kExitUsage;
    }
    int status = kExitDone;
    const auto file = loadProject(project_, streams, status);
    if (!file)
        return status;
    const InterfaceFacts facts =
        interfaceFacts(file->project, std::filesystem::path(project_).stem().string());
    const std::string text = isMarkdown() ? interfaceMarkdown(facts) : interfaceHtml(facts);
    if (out_.empty()) {
        streams.out << text;
        return kExitDone;
    }
    if (const Result<void> written = replaceFile(out_, text); !written) {
        streams.err << printable(out_) << ": cannot be written: " << printable(written.error().description)
                    << '\n';
        return kExitFileFault;
    }
    streams.out << printable(out_) << ": " << facts.messages.size() << " messages\n";
    return kExitDone;
}

std::unique_ptr<Verb> makeDocumentVerb() {
    return std::make_unique<DocumentVerb>();
}

} // namespace zb
