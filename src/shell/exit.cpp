#include "controls/desktop.h"
#include "platform/text.h"
#include "shell/application.h"
#include "shell/project_lifecycle.h"

namespace zb {

ProjectLifecycle::Goes ProjectLifecycle::askToSave() {
    if (isBlank(app_.ProjectName))
        return Goes::On;
    const Answer answer = app_.desktop.showBox(
        {"Do you want to save current project", {}, BoxIcon::Question, BoxButtons::YesNoCancel});
    if (answer == Answer::Cancel)
        return Goes::Nowhere;
    if (answer == Answer::Yes)
        saveProject();
    return Goes::On;
}

ProjectLifecycle::Exit ProjectLifecycle::confirmExit() {
    return askToSave() == Goes::Nowhere ? Exit::Stay : Exit::Leave;
}

} // namespace zb
