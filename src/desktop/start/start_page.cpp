#include "desktop/start/start_page.h"

#include "controls/desktop.h"
#include "desktop/binders/binder.h"
#include "desktop/file_drops.h"
#include "desktop/message_boxes.h"
#include "desktop/qt_text.h"
#include "desktop/start/example_project.h"
#include "desktop/start/start_panel.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "project/project_files.h"
#include "project/recent_projects.h"
#include "shell/frm_main.h"
#include "workbench/frm_workbench.h"

#include <utility>

namespace zb {

StartPage::StartPage(frmMain& main, QWidget& place, Binding& binding) : main_(main), binding_(binding) {
    pickFolder = [&place] {
        return askFolder(QStringLiteral("Folder for the Example"), QStringLiteral("Copy here"),
                         place.window(), {});
    };
    const auto choose = [this](MenuEntry& entry) {
        return [this, &entry] { binding_.hands.click(Target::whole(entry)); };
    };
    StartPanel::Ways ways{choose(main.mnuNew), choose(main.mnuOpen), [this] { openExample(); },
                          [this](const std::string& path) { openBy(main_.mnuOpen, std::string(path)); },
                          [this] { return recentProjects(); }};
    panel_ = std::make_unique<StartPanel>(place, binding.pictures, std::move(ways));
    if (frmWorkbench* strip = workbench(); strip != nullptr)
        strip->notices.onChanged = [this] { showOffers(); };
    showOffers();
    drops_ = std::make_unique<FileDrops>(*place.window(), *this, binding);
}

StartPage::~StartPage() {
    if (frmWorkbench* strip = workbench(); strip != nullptr)
        strip->notices.onChanged = nullptr;
}

frmWorkbench* StartPage::workbench() const {
    return dynamic_cast<frmWorkbench*>(binding_.desktop.find("frmWorkbench"));
}

void StartPage::showOffers() {
    std::vector<StartPanel::Offer> offers;
    if (const frmWorkbench* strip = workbench(); strip != nullptr) {
        for (const NoticeBar::Waiting& waiting : strip->notices.waiting()) {
            offers.push_back({toQt(waiting.text), {}});
            for (std::size_t action = 0; action < waiting.actions.size(); ++action)
                offers.back().ways.emplace_back(
                    toQt(waiting.actions[action]),
                    [this, number = waiting.number, action] { choose(number, action); });
        }
    }
    panel_->setOffers(offers);
}

void StartPage::choose(int notice, std::size_t action) {
    NoticeBar& notices = workbench()->notices;
    if (notices.turnTo(notice))
        binding_.hands.click(Target::whole(notices.cmdNotice[action]));
}

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
    openBy(main_.mnuOpen, copy->string());
}

void StartPage::openBy(Control& entry, const std::string& file) {
    nextFile_ = file;
    binding_.hands.click(Target::whole(entry));
    nextFile_.clear();
}

void StartPage::showRehearsal() {
    if (frmWorkbench* strip = workbench(); strip != nullptr)
        binding_.hands.click(Target::whole(strip->cmdRehearsal));
}

// Without those that are gone: there is nobody yet to tell why they cannot be opened.
std::vector<std::string> StartPage::recentProjects() const {
    const frmWorkbench* strip = workbench();
    if (strip == nullptr)
        return {};
    std::vector<std::string> paths = RecentProjects(strip->services().state.settings).all();
    std::erase_if(paths, [](const std::string& path) { return !isFile(path); });
    return paths;
}

} // namespace zb
