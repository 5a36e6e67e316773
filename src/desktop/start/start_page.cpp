#include "desktop/start/start_page.h"

#include "controls/desktop.h"
#include "desktop/binders/binder.h"
#include "desktop/message_boxes.h"
#include "desktop/start/example_project.h"
#include "desktop/start/start_panel.h"
#include "platform/text.h"
#include "shell/frm_main.h"

#include <utility>

namespace zb {

StartPage::StartPage(frmMain& main, QWidget& place, Binding& binding) : main_(main), binding_(binding) {
    pickFolder = [&place] {
        return askFolder(QStringLiteral("Folder for the Example"), QStringLiteral("Copy here"),
                         place.window());
    };
    const auto choose = [this](MenuEntry& entry) {
        return [this, &entry] { binding_.hands.click(Target::whole(entry)); };
    };
    StartPanel::Ways ways{choose(main.mnuNew), choose(main.mnuOpen), [this] { openExample(); }};
    panel_ = std::make_unique<StartPanel>(place, binding.pictures, std::move(ways));
}

StartPage::~StartPage() = default;

bool StartPage::projectIsOpen() const {
    const StatusPanel* panel = main_.stbMain.find("ProjectName");
    return panel != nullptr && !isBlank(panel->text);
}

// The panel stays until a document is shown, and returns only when a command has completed: a cancelled one
// leaves it as it was, with its focus.
void StartPage::follow(bool documentShown) {
    const Showing showing(binding_);
    if (documentShown || projectIsOpen())
        panel_->setShown(false);
    else if (main_.visible() && main_.pointer() != Pointer::Hourglass)
        panel_->setShown(true);
}

std::string StartPage::takeFile() {
    return std::exchange(nextFile_, {});
}

void StartPage::openExample() {
    const std::string folder = pickFolder();
    if (folder.empty())
        return;
    const auto copy = copyExample(folder);
    if (!copy) {
        binding_.desktop.showBox("The example cannot be copied to " + folder + ":\r\n" +
                                     copy.error().description,
                                 BoxIcon::Exclamation);
        return;
    }
    nextFile_ = copy->string();
    binding_.hands.click(Target::whole(main_.mnuOpen));
    nextFile_.clear();
}

} // namespace zb
