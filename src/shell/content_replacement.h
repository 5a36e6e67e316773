#pragma once

#include "project/project.h"
#include "shell/project_frame_journal.h"

#include <cstddef>
#include <string>

namespace zb {

class Application;

/// Puts another content into the open project, as one undoable step of the editor and the modeler together:
/// Undo in either window takes both back, and steps that were made after it in the other window go with it.
/// What is the same in both contents stays as it is, with its marks, expansion and selection, so that the
/// step keeps only what differs.
class ContentReplacement {
public:
    /// The histories of the application must exist, without a step.
    explicit ContentReplacement(Application& application);

    /// Name, path and file of the project do not change; it is unsaved work afterwards. A content without a
    /// difference leaves no step. The user stays in the window that is in front. A project must be open.
    void replace(Project content, const std::string& step);
    /// The content of the open project, as a save would write it.
    Project content() const;

private:
    void replaceMessages(const ProjectMessages& messages);
    void replaceModel(TRModelStore& model);
    /// The modeler reads messages from the store of messages only.
    void followInModeler();
    void stepMoved(const std::string& name, bool undone, std::size_t others);

    Application& app_;
    ProjectFrameJournal frame_;
};

} // namespace zb
