#pragma once

#include "controls/combo.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"
#include "project/module_state.h"

#include <string>

namespace zb {

/// The dialog that names a new project, or the target of Save As. It writes nothing itself: the callers read
/// its results, and an empty `ProjectName` means that it was cancelled.
class frmNewProject final : public Window {
public:
    /// `applicationFolder` is the location offered when no project is open.
    frmNewProject(Desktop& desktop, ModuleState& state, std::string applicationFolder);

    /// The state that opening the dialog resets: lists, type, result.
    void load();
    /// Each runs modally; `folder` is the current project's folder and may be blank.
    void requestNew(const std::string& folder);
    void requestSaveAs(const std::string& folder, int type);

    /// The results.
    std::string ProjectName;
    std::string ProjectPath; ///< the project folder
    int ProjectType = 1;     ///< also the current choice while the dialog is open

    void closeByFrame() override;

    Label lblProjectName{*this, "lblProjectName", "Project Name"};
    TextField txtProjectName{*this, "txtProjectName"};
    Label lblLocation{*this, "lblLocation", "Location"};
    TextField txtLocation{*this, "txtLocation"};
    Combo drvProject{*this, "drvProject"};
    FolderField dirProject{*this, "dirProject"};
    Pane fraPrjType{*this, "fraPrjType", "Project Type"};
    OptionGroup types;
    Option optProjectType1{*this, "optProjectType[1]", "&Host", types, &fraPrjType};
    Option optProjectType2{*this, "optProjectType[2]", "&Equipment", types, &fraPrjType};
    Button cmdOK{*this, "cmdOK", "&OK"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};

private:
    enum class Use { New, SaveAs };
    void request(Use use, const std::string& folder, int type);
    void offerLocation(const std::string& location);
    void nameChanged();
    void typeClicked(int type);
    void accept();
    bool checkProjectNameChars(const std::string& name);
    void selectType(int type);
    Option& optionOf(int type) { return type == 2 ? optProjectType2 : optProjectType1; }

    ModuleState& state_;
    std::string applicationFolder_;
    Use use_ = Use::New;
};

} // namespace zb
