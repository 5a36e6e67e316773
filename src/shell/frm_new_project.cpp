#include "shell/frm_new_project.h"

#include "controls/desktop.h"
#include "platform/drives.h"
#include "platform/text.h"
#include "project/project_files.h"

namespace zb {

namespace {

constexpr int kHost = 1;
constexpr int kEquipment = 2;

bool isProjectNameCharacter(unsigned ansi) {
    return (ansi >= 'A' && ansi <= 'Z') || (ansi >= 'a' && ansi <= 'z') || (ansi >= '0' && ansi <= '9') ||
           ansi == '_';
}

std::string titled(std::string_view start) {
    return std::string(start) + std::string(kApplicationTitle);
}

std::string parentOf(const std::string& folder) {
    const auto last = folder.rfind(pathSeparator());
    if (last == std::string::npos)
        return folder;
    // The parent of a folder below the root keeps the root's separator.
    return last == 0 ? folder.substr(0, 1) : folder.substr(0, last);
}

} // namespace

frmNewProject::frmNewProject(Desktop& desktop, ModuleState& state, std::string applicationFolder)
    : Window(desktop, "frmNewProject"), state_(state), applicationFolder_(std::move(applicationFolder)) {
    txtLocation.setReadOnly(true);
    txtProjectName.setToolTip("Letters, digits and _");
    txtLocation.setToolTip("The project gets a folder of its own name in here");
    drvProject.setToolTip("Drives of this machine");
    dirProject.setToolTip("The folder in which the project's folder is made");
    setFirstFocus(txtProjectName);
    setCancelButton(cmdCancel);
    setDefaultButton(cmdOK);

    txtProjectName.onChange = [this] { nameChanged(); };
    txtProjectName.setAnswersEnter();
    txtProjectName.onKeyDown = [this](KeyEvent key) {
        if (key.code == kKeyEnter)
            accept();
    };
    drvProject.onChoose = [this] {
        dirProject.setText(before(drvProject.text(), " ["));
        txtLocation.setText(dirProject.text());
    };
    dirProject.onChange = [this] { txtLocation.setText(dirProject.text()); };
    optProjectType1.onClick = [this] { typeClicked(kHost); };
    optProjectType2.onClick = [this] { typeClicked(kEquipment); };
    cmdOK.onClick = [this] { accept(); };
    cmdCancel.onClick = [this] { closeByFrame(); };
    load();
}

void frmNewProject::load() {
    drvProject.clear();
    for (std::string& drive : listDrives())
        drvProject.add(std::move(drive));
    ProjectName.clear();
    ProjectPath.clear();
    ProjectType = kHost;
    selectType(kHost);
}

void frmNewProject::requestNew(const std::string& folder) {
    setCaption(titled("New Project - "));
    request(Use::New, folder, kHost);
}

void frmNewProject::requestSaveAs(const std::string& folder, int type) {
    setCaption(titled("SaveAs Project - "));
    request(Use::SaveAs, folder, type);
}

void frmNewProject::request(Use use, const std::string& folder, int type) {
    use_ = use;
    ProjectName.clear();
    txtProjectName.setText("");
    cmdOK.setEnabled(false);
    offerLocation(isBlank(folder) ? applicationFolder_ : parentOf(folder));
    ProjectType = type;
    selectType(type);
    setFirstFocus(txtProjectName);
    showModal();
}

void frmNewProject::offerLocation(const std::string& location) {
    txtLocation.setText(location);
    drvProject.setText(driveOf(drvProject.entries(), location));
    dirProject.setText(location);
}

void frmNewProject::nameChanged() {
    cmdOK.setEnabled(!isBlank(txtProjectName.text()));
}

void frmNewProject::selectType(int type) {
    optionOf(type).setOn(true);
}

void frmNewProject::typeClicked(int type) {
    if (use_ != Use::SaveAs || type == ProjectType)
        return;
    const Answer answer =
        desktop().showBox({"If you change Project Type,\r\n"
                           "your Transaction Modeling Definitions will be deleted!\r\n\r\n"
                           "Would you like to change type?",
                           titled("Confirm Project Type - "), BoxIcon::Information, BoxButtons::YesNo});
    if (answer == Answer::Yes)
        return;
    selectType(ProjectType);
    optionOf(ProjectType).setFocus();
}

void frmNewProject::accept() {
    const std::string name = trim(txtProjectName.text());
    if (name.empty()) {
        txtProjectName.setFocus();
        desktop().showBox({"Insert ProjectName", "New Project", BoxIcon::None, BoxButtons::OK});
        return;
    }
    if (!checkProjectNameChars(name)) {
        desktop().showBox("Invalid Project Name", BoxIcon::Critical);
        return;
    }
    ProjectName = name;
    ProjectType = optProjectType2.on() ? kEquipment : kHost;
    const std::string& location = txtLocation.text();
    ProjectPath =
        location.ends_with(pathSeparator()) ? location + ProjectName : joinPath(trim(location), ProjectName);
    hide();
}

bool frmNewProject::checkProjectNameChars(const std::string& name) {
    const std::size_t leading = txtProjectName.text().find_first_not_of(' ');
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t length = decodeCharacter(name, at).length;
        if (!isProjectNameCharacter(state_.codePage.ansiValue(name.substr(at, length)))) {
            txtProjectName.setFocus();
            txtProjectName.select(leading + at, leading + at + length);
            return false;
        }
        at += length;
    }
    return true;
}

void frmNewProject::closeByFrame() {
    ProjectName.clear();
    hide();
}

} // namespace zb
