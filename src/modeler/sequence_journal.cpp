#include "modeler/sequence_journal.h"

#include <algorithm>
#include <utility>

namespace zb {

void SequencePart::record(std::size_t at, std::size_t count, SequenceRows old, bool onlyMarks) {
    bytes_ += sizeof(Edit);
    for (const MarkedRow& row : old)
        bytes_ += sizeof row + row.row.text.size() + row.row.transactionName.size();
    changesRows_ = changesRows_ || !onlyMarks;
    edits_.push_back({at, count, std::move(old), onlyMarks});
}

void SequencePart::undo() {
    std::for_each(edits_.rbegin(), edits_.rend(), [this](Edit& edit) { swap(edit); });
}

void SequencePart::redo() {
    for (Edit& edit : edits_)
        swap(edit);
}

void SequencePart::swap(Edit& edit) {
    const std::size_t count = edit.other.size();
    edit.other = view_.replace(edit.at, edit.count, std::move(edit.other));
    edit.count = count;
}

void SequencePart::append(std::unique_ptr<StepPart> later) {
    auto& part = static_cast<SequencePart&>(*later); // parts of one source have one type
    for (Edit& edit : part.edits_)
        record(edit.at, edit.count, std::move(edit.other), edit.onlyMarks);
}

std::size_t SequencePart::affected() const {
    const auto found =
        std::find_if(edits_.begin(), edits_.end(), [](const Edit& edit) { return !edit.onlyMarks; });
    return found == edits_.end() ? 0 : found->at;
}

SequenceJournal::~SequenceJournal() {
    view_.setRecorder(nullptr);
}

std::unique_ptr<StepPart> SequenceJournal::take() {
    return std::move(part_);
}

void SequenceJournal::setRecording(bool on) {
    view_.setRecorder(on ? this : nullptr);
}

void SequenceJournal::afterChange(std::size_t at, std::size_t count, SequenceRows old) {
    part().record(at, count, std::move(old), false);
}

void SequenceJournal::beforeMark(std::size_t at) {
    part().record(at, 1, view_.rows(at, 1), true);
}

SequencePart& SequenceJournal::part() {
    if (part_ == nullptr)
        part_ = std::make_unique<SequencePart>(view_);
    return *part_;
}

} // namespace zb
