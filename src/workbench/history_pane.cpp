#include "workbench/history_pane.h"

#include "controls/desktop.h"
#include "platform/local_time.h"
#include "project/project_files.h"
#include "project/version_changes.h"
#include "workbench/compare_door.h"
#include "workbench/frm_workbench.h"
#include "workbench/project_door.h"

#include <chrono>

namespace zb {

namespace {

constexpr std::size_t kChangesColumn = 3;
// More is described between the actions of the user, one version at a time.
constexpr std::uintmax_t kAtOnce = 2'000'000;

std::string sizeText(std::uintmax_t bytes) {
    return std::to_string((bytes + 1023) / 1024) + " KiB";
}

std::string textOf(const ProjectHistory::Version& version) {
    const auto file = readProjectFile(version.path.string());
    return file ? file->text : std::string();
}

} // namespace

HistoryPane::HistoryPane(frmWorkbench& workbench)
    : WorkbenchPane(workbench, "History", "The kept versions of the project") {
    lvwHistory.addColumn("Version", 900);
    lvwHistory.addColumn("Kept", 1900);
    lvwHistory.addColumn("Size", 1200);
    lvwHistory.addColumn("Changes", 6000);
    lvwHistory.onMouseUp = [this](int /*button*/, ListRow* /*row*/) { enableCommands(); };
    lvwHistory.onReached = [this](ListRow& /*row*/) { enableCommands(); };
    cmdRestore.setToolTip("Show this version in place of the open project, which is kept as a version first");
    cmdOpenBeside.setToolTip("Open a copy of this version that cannot be changed, in a window of its own");
    cmdRestore.onClick = [this] {
        if (const auto* version = chosen(); version != nullptr)
            this->workbench().services().project.restoreVersion(ProjectHistory::Version(*version));
    };
    cmdOpenBeside.onClick = [this] {
        if (const auto* version = chosen(); version != nullptr)
            this->workbench().services().project.openBeside(ProjectHistory::Version(*version));
    };
    cmdCompareVersion.setToolTip("Compare the open project with this version");
    cmdCompareVersion.onClick = [this] {
        if (const auto* version = chosen(); version != nullptr)
            this->workbench().services().compare.compareWithVersion(version->number);
    };
    enableCommands();
}

void HistoryPane::refresh() {
    if (!isOpen())
        return;
    const std::string selected =
        lvwHistory.selected() == nullptr ? std::string() : lvwHistory.selected()->key();
    versions_ = workbench().services().project.versions();
    lvwHistory.clear();
    std::uintmax_t bytes = 0;
    for (std::size_t position = versions_.size(); position-- > 0;) {
        const ProjectHistory::Version& version = versions_[position];
        const std::string number = std::to_string(version.number);
        ListRow& row = lvwHistory.add(number, number);
        row.setCell(1, localTime(version.time));
        row.setCell(2, sizeText(version.bytes));
        bytes += version.bytes;
    }
    lvwHistory.select(lvwHistory.find(selected));
    enableCommands();
    toDescribe_ = versions_.size();
    ++filling_;
    if (bytes > kAtOnce) {
        describeNext();
        return;
    }
    while (toDescribe_ > 0)
        describe(--toDescribe_);
}

// The newest first: they are the ones that are looked at.
void HistoryPane::describeNext() {
    window().desktop().screen().callLater(std::chrono::milliseconds(0), [this, filling = filling_] {
        if (filling != filling_ || toDescribe_ == 0)
            return;
        describe(--toDescribe_);
        describeNext();
    });
}

void HistoryPane::describe(std::size_t position) {
    const ProjectHistory::Version& version = versions_[position];
    std::string& changes = described_[version.path.string()];
    if (changes.empty())
        changes = position == 0 ? "the oldest version"
                                : describeChanges(textOf(versions_[position - 1]), textOf(version));
    if (ListRow* row = lvwHistory.find(std::to_string(version.number)); row != nullptr)
        row->setCell(kChangesColumn, changes);
}

const ProjectHistory::Version* HistoryPane::chosen() const {
    const ListRow* row = lvwHistory.selected();
    for (const ProjectHistory::Version& version : versions_) {
        if (row != nullptr && row->key() == std::to_string(version.number))
            return &version;
    }
    return nullptr;
}

void HistoryPane::enableCommands() {
    const bool isChosen = lvwHistory.selected() != nullptr;
    cmdRestore.setEnabled(isChosen);
    cmdOpenBeside.setEnabled(isChosen);
    cmdCompareVersion.setEnabled(isChosen);
}

} // namespace zb
