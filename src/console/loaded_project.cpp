#include "console/loaded_project.h"

#include "messages/editor_pane.h"
#include "messages/smd/smd_reader.h"
#include "platform/locale.h"
#include "platform/printable.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/user_folders.h"
#include "platform/wildcard.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace zb {

namespace {

/// Any of the lines by which a reader of projects finds its way.
bool hasProjectLine(std::string_view text) {
    constexpr std::array<std::string_view, 2> kMarkers{"###[PROJECT INFORMATION]", "## [EDIT SMD]"};
    LineReader lines(text);
    while (const auto line = lines.next()) {
        if (std::find(kMarkers.begin(), kMarkers.end(), trimRight(*line)) != kMarkers.end())
            return true;
    }
    return false;
}

} // namespace

int LoadedProject::load(const std::string& path, ConsoleStreams streams) {
    const auto bytes = readBytes(path);
    if (!bytes) {
        streams.err << printable(path) << ": cannot be read: " << printable(bytes.error().description)
                    << '\n';
        return kExitFileFault;
    }
    const ProjectText project = decodeProject(*bytes);
    std::string fault = project.fault;
    if (fault.empty() && !hasProjectLine(project.text))
        fault = "it has neither a project header nor a section of messages";
    if (!fault.empty()) {
        streams.err << printable(path) << ": not a project file: " << printable(fault) << '\n';
        return kExitFault;
    }
    codePage = codePageOfUser();
    text = project.text;
    NoEditorPane pane;
    readSmdText(tree, project.text, pane);
    return kExitDone;
}

CodePage codePageOfUser() {
    const SettingsStore settings(settingsFolder());
    return chooseCodePage(settings.readRegValue(kSettingsKey, "AnsiCodePage"), localeName());
}

bool isMessageNode(const Node& node) {
    return node.parent() == nullptr && hasColon(node.text());
}

} // namespace zb
