#include "lint/left_out.h"

#include "platform/finding.h"
#include "project/project_view.h"

#include <algorithm>
#include <string>

namespace zb {

namespace {

std::string counted(std::ptrdiff_t count, const std::string& what) {
    if (count == 0)
        return "it out";
    return "out it and the " + std::to_string(count) + " " + what + (count == 1 ? "" : "s") + " after it";
}

template<typename Records>
std::ptrdiff_t recordsAfter(const Records& records, const std::string& name) {
    const auto found = std::find_if(records.begin(), records.end(),
                                    [&](const auto& record) { return record->Name() == name; });
    return found == records.end() ? 0 : records.end() - found - 1;
}

/// What the TMD file leaves out, with that word; empty when nothing of the model is found.
std::string leftOut(const Finding& finding, const ProjectView& project) {
    const FindingPlace& place = finding.place;
    if (place.subject == FindingPlace::Subject::Sequence) {
        const auto& rows = project.sequences.rows();
        return counted(
            std::count_if(rows.begin() + std::min<std::ptrdiff_t>(place.nodeIndex, std::ssize(rows)),
                          rows.end(), [](const SequenceRow& row) { return row.isHead(); }),
            "sequence");
    }
    const TRMessageRecord* record =
        project.model == nullptr ? nullptr : project.model->getTRMessage(place.message);
    if (record == nullptr)
        return {};
    if (!place.item.empty())
        return counted(recordsAfter(record->TRItems(), place.item), "TR item");
    if (!finding.text.starts_with("\"" + place.message + "\""))
        return "out the choice of TR messages for this SECS message and those after it";
    return counted(recordsAfter(project.model->TRMessages(), place.message), "TR message");
}

} // namespace

void explainLeftOut(Finding& finding, const ProjectView& project) {
    if (finding.id != "tmd.name")
        return;
    if (const std::string text = leftOut(finding, project); !text.empty())
        finding.text += ", so that it leaves " + text;
}

} // namespace zb
