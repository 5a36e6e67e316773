#include "editor/marks_journal.h"

#include "editor/marked_nodes.h"

#include <utility>

namespace zb {

std::size_t MarksPart::bytes() const {
    return sizeof *this + (before_.capacity() + after_.capacity()) * sizeof(void*);
}

void MarksPart::append(std::unique_ptr<StepPart> later) {
    after_ = std::move(static_cast<MarksPart&>(*later).after_); // parts of one source have one type
}

bool MarksJournal::hasChanged() const {
    return recording_ && seen_ != nodes_.changes();
}

std::unique_ptr<StepPart> MarksJournal::take() {
    if (!hasChanged())
        return nullptr;
    MarksPart::Marks before = std::move(last_);
    follow();
    return before == last_ ? nullptr : std::make_unique<MarksPart>(std::move(before), last_);
}

void MarksJournal::drop() noexcept {
    last_.clear();
    seen_ = nodes_.changes();
}

// What an undo or redo has marked is not a change.
void MarksJournal::setRecording(bool on) {
    recording_ = on;
    if (on)
        follow();
}

void MarksJournal::follow() {
    last_ = nodes_.units();
    seen_ = nodes_.changes();
}

} // namespace zb
