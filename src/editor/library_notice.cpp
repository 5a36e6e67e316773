#include "editor/library_notice.h"

#include "editor/editor_controls.h"
#include "messages/library_store.h"

#include <algorithm>
#include <filesystem>

namespace zb {

namespace {

constexpr const char* kShow = "Show";
constexpr const char* kHide = "Hide";

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

std::string orNothing(std::size_t number) {
    return number == 0 ? "" : std::to_string(number);
}

} // namespace

LibraryNotice::LibraryNotice(EditorControls& window) : window_(window) {
    List& list = window_.lvwLibraryFindings;
    list.addColumn("Line", 600);
    list.addColumn("Column", 800);
    list.addColumn("Finding", 6000);
    window_.cmdLibraryFindings.onClick = [this] { toggleFindings(); };
    clear();
}

void LibraryNotice::clear() {
    window_.lvwLibraryFindings.clear();
    window_.lblLibraryFile.setText("");
    window_.lblLibraryNotice.setText("");
    window_.cmdLibraryFindings.setCaption(kShow);
    for (Control* control :
         std::initializer_list<Control*>{&window_.lblLibraryFile, &window_.lblLibraryNotice,
                                         &window_.cmdLibraryFindings, &window_.lvwLibraryFindings})
        control->setVisible(false);
}

void LibraryNotice::showFile(const std::string& path) {
    window_.lblLibraryFile.setText(std::filesystem::path(path).filename().string());
    window_.lblLibraryFile.setToolTip(path);
    window_.lblLibraryFile.setVisible(true);
}

void LibraryNotice::showFindings(const SECSLibraryStore& library) {
    const std::string summary = summaryOf(library);
    if (summary.empty())
        return;
    fillFindings(library);
    window_.lblLibraryNotice.setText(summary);
    window_.lblLibraryNotice.setVisible(true);
    window_.cmdLibraryFindings.setVisible(true);
}

void LibraryNotice::fillFindings(const SECSLibraryStore& library) {
    for (const Finding& finding : library.findings()) {
        if (isNote(finding))
            continue;
        ListRow& row = window_.lvwLibraryFindings.add(orNothing(finding.place.line));
        row.setCell(1, orNothing(finding.place.column));
        row.setCell(2, finding.text);
    }
}

void LibraryNotice::toggleFindings() {
    const bool shown = !window_.lvwLibraryFindings.visible();
    window_.lvwLibraryFindings.setVisible(shown);
    window_.cmdLibraryFindings.setCaption(shown ? kHide : kShow);
}

} // namespace zb
