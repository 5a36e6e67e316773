#include "generate/generation.h"

#include "generate/plug_in_model.h"
#include "generate/plug_in_writer.h"

namespace zb::generate {

Generation generatePlugIn(const Project& project, const std::string& projectName, const Language& language,
                          const CodePage& codePage) {
    const PlugInModel model(project);
    Generation generation;
    generation.files = PlugInWriter(model, language, codePage, projectName).files();
    generation.notes = model.notes();
    generation.messages = model.messages().size();
    generation.received = model.received().size();
    generation.sent = model.sent().size();
    for (const SequenceRow& row : project.sequences.rows())
        generation.sequences += row.isHead() ? 1 : 0;
    return generation;
}

} // namespace zb::generate
