#include "demand.h"

#include "platform/text_file.h"
#include "project/project_text.h"

#include <string>

namespace {

/// What a save would write for the model in the text.
std::string saved(const std::string& projectText) {
    const zb::Project project = zb::parseProject(projectText);
    for (const auto& message : project.model->TRMessages())
        zb::fuzz::demand(project.model->getTRMessage(message->Name()) == message.get(),
                         "messages have their own names");
    return zb::composeModelSections({}, *project.model, {});
}

} // namespace

/// Any bytes give a model, and a saved model is read back unchanged. The start of a message is prepended, or
/// most inputs would be ignored.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view bytes = zb::fuzz::asText(data, size);
    for (const char* before : {"", "## [TR MESSAGE] M\n", "## [TR MESSAGE] M\nTRItem I\n"}) {
        const std::string text = before + std::string(bytes);
        const std::string once = saved(text);
        zb::fuzz::demand(saved(zb::decodeProject(zb::encodeUtf16(once)).text) == once,
                         "a saved model comes back as it was");
    }
    return 0;
}
