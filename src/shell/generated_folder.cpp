#include "shell/generated_folder.h"

#include "controls/desktop.h"
#include "platform/text.h"
#include "shell/frm_result.h"
#include "workbench/frm_workbench.h"

#include <filesystem>
#include <system_error>

namespace zb {

namespace {

constexpr std::string_view kMark = "Written: ";
constexpr const char* kTopic = "generated folder";

std::string folderIn(const std::string& output) {
    for (const std::string& line : split(replaceAll(output, "\r\n", "\n"), "\n")) {
        std::error_code error;
        if (line.starts_with(kMark) && std::filesystem::is_directory(line.substr(kMark.size()), error))
            return line.substr(kMark.size());
    }
    return {};
}

/// "ZeltoPlugIn/cpp"
std::string shownName(const std::filesystem::path& folder) {
    return (folder.parent_path().filename() / folder.filename()).string();
}

} // namespace

GeneratedFolder::GeneratedFolder(frmWorkbench& workbench, frmResult& result)
    : mnuGeneratedMore(workbench, "mnuGeneratedMore"),
      mnuOpenGenerated(workbench, "mnuOpenGenerated", "&Open folder", &mnuGeneratedMore),
      workbench_(workbench) {
    mnuGeneratedMore.setLeavesFocus();
    mnuGeneratedMore.onOpen = [this] { mnuOpenGenerated.setEnabled(!folder_.empty()); };
    mnuOpenGenerated.setShortcut("Ctrl+Enter");
    mnuOpenGenerated.onClick = [this] { open(); };
    result.rtbResult.setContextMenu(&mnuGeneratedMore);
    KeyCommand opens;
    opens.key = {kKeyEnter, kControlKey};
    opens.place = {&result, {&result.rtbResult, &result.cmdOK}};
    opens.where = "the result of the generator";
    opens.purpose = "Opens the folder that was written";
    opens.run = [this] {
        if (folder_.empty())
            return false;
        open();
        return true;
    };
    workbench.desktop().keys().add(std::move(opens));
}

void GeneratedFolder::show(const std::string& output) {
    folder_ = folderIn(output);
    if (folder_.empty())
        workbench_.desktop().withdraw(kTopic);
    else
        workbench_.desktop().post(
            {"The plug-in is in " + shownName(folder_), {{"Open folder", [this] { open(); }}}, kTopic});
}

void GeneratedFolder::open() const {
    if (!workbench_.desktop().screen().openFile(folder_))
        workbench_.desktop().post({"No program on this system opens " + shownName(folder_), {}, kTopic});
}

} // namespace zb
