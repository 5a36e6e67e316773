#include "demand.h"

#include "messages/definition_check.h"
#include "messages/smd/smd_reader.h"
#include "messages/smd/smd_writer.h"
#include "platform/text_file.h"
#include "project/project_text.h"

namespace {

struct Program {
    zb::CodePage codePage{1252};
    zb::NodeTree tree;

    void walk(zb::WalkMode mode) {
        zb::SECSMessageStore store;
        zb::SmdWriter(codePage).buildMessageText(mode, tree, store);
    }
};

} // namespace

/// Any bytes open as a project, are checked, and can be saved. They are read as a section of messages, too,
/// or most inputs would be passed over.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view bytes = zb::fuzz::asText(data, size);
    Program program;
    const zb::Project project = zb::parseProject(zb::decodeProject(bytes).text);
    project.messages.fill(program.tree);
    const std::string composed = zb::composeProject(project);
    zb::fuzz::demand(zb::composeProject(zb::parseProject(composed)) == composed,
                     "a composed project comes back as it was");
    zb::readSmdSection(program.tree, zb::decodeText(bytes, program.codePage));
    const std::size_t nodes = program.tree.count();
    zb::checkDefinitions(program.tree, program.codePage);
    program.walk(zb::WalkMode::SaveProject);
    if (bytes.find("00000") == std::string_view::npos) // a large fixed count is padded, which takes time
        program.walk(zb::WalkMode::Modeler);
    static_cast<void>(zb::SmdWriter(program.codePage).composeSingleMessage(program.tree));
    zb::fuzz::demand(program.tree.count() == nodes, "walks leave the nodes alone");
    return 0;
}
