#include "demand.h"

#include "controls/desktop.h"
#include "messages/definition_check.h"
#include "messages/smd/smd_reader.h"
#include "messages/smd/smd_writer.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "platform/text_file.h"

namespace {

class NobodyAtTheScreen final : public zb::Screen {
public:
    zb::Answer showBox(const zb::Box& /*box*/) override { return zb::Answer::OK; }
    std::string pickFile(const zb::FileDialog& /*dialog*/) override { return {}; }
    void runModal(zb::Window& /*window*/) override {}
    void bringToFront(zb::Window& /*window*/) override {}
    void openPopup(zb::PopupMenu& /*menu*/) override {}
};

struct Program {
    NobodyAtTheScreen screen;
    zb::Desktop desktop{screen};
    zb::SettingsStore settings = zb::SettingsStore::inMemory();
    zb::SystemFileLayer files;
    zb::ModuleState state{desktop, settings, files};
    zb::NoEditorPane pane;
    zb::NodeTree tree;

    void walk(std::string_view mode) {
        std::string sections;
        state.projectSections = &sections;
        zb::SmdWriter(state, pane).buildMessageText("P", mode, tree);
    }
};

} // namespace

/// Any bytes open as a project, are checked, and can be saved. The section's line is put in front, or most
/// inputs would be passed over.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view bytes = zb::fuzz::asText(data, size);
    Program program;
    zb::readSmdText(program.tree, zb::decodeProject(bytes).text, program.pane);
    zb::readSmdText(program.tree, "## [EDIT SMD]\n" + zb::decodeText(bytes, program.state.codePage),
                    program.pane);
    const std::size_t nodes = program.tree.count();
    zb::checkDefinitions(program.tree, program.state.codePage);
    program.walk("SAVE_PROJECT");
    if (bytes.find("00000") ==
        std::string_view::npos) // a large fixed count is filled up, which takes its time
        program.walk("MODELER");
    zb::SmdWriter(program.state, program.pane).composeSingleMessage("MODELER_SAVE", program.tree);
    zb::fuzz::demand(program.tree.count() == nodes, "walks leave the nodes alone");
    return 0;
}
