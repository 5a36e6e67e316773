#include "editor/library_notice.h"

#include "editor/editor_controls.h"
#include "messages/library_store.h"

#include <algorithm>
#include <filesystem>

namespace zb {

namespace {

std::string counted(std::size_t number, const std::string& thing) {
    return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

bool isNote(const Finding& finding) {
    return finding.severity == Severity::Note;
}

/// Empty when there is nothing that the user has to know.
std::string summaryOf(const SECSLibraryStore& library) {
    const Findings& findings = library.findings();
    const auto faults = static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(), [](const Finding& f) { return !isNote(f); }));
    const std::string read = counted(library.getMessages().size(), "message") + " read";
    if (library.unread() > 0)
        return read + ", " + std::to_string(library.unread()) + " not";
    return faults == 0 ? "" : read + ", " + counted(faults, "finding");
}

} // namespace

LibraryNotice::LibraryNotice(EditorControls& window) : window_(window) {
    window_.cmdLibraryFindings.setToolTip("Show what was found in the file");
    window_.cmdLibraryFindings.onClick = [this] { fire(onShow); };
    clear();
}

void LibraryNotice::clear() {
    window_.lblLibraryFile.setText("");
    window_.lblLibraryNotice.setText("");
    for (Control* control : std::initializer_list<Control*>{
             &window_.lblLibraryFile, &window_.lblLibraryNotice, &window_.cmdLibraryFindings})
        control->setVisible(false);
    fire(onFindings, Findings());
}

void LibraryNotice::showFile(const std::string& path) {
    window_.lblLibraryFile.setText(std::filesystem::path(path).filename().string());
    window_.lblLibraryFile.setToolTip(path);
    window_.lblLibraryFile.setVisible(true);
}

void LibraryNotice::showFindings(const std::string& path, const SECSLibraryStore& library) {
    Findings findings = library.findings();
    for (Finding& finding : findings)
        finding.place.message = std::filesystem::path(path).filename().string();
    fire(onFindings, findings);
    const std::string summary = summaryOf(library);
    if (summary.empty())
        return;
    window_.lblLibraryNotice.setText(summary);
    window_.lblLibraryNotice.setVisible(true);
    window_.cmdLibraryFindings.setVisible(true);
}

} // namespace zb
