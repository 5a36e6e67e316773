#include "modeler/model_journal.h"

#include <algorithm>
#include <utility>

namespace zb {

void ModelPart::record(Kind kind, std::size_t position, std::unique_ptr<TRMessageRecord> other) {
    bytes_ += sizeof(Edit) + (other ? other->bytes() : 0);
    edits_.push_back({kind, position, std::move(other)});
}

bool ModelPart::isLastChange(std::size_t position) const {
    return !edits_.empty() && edits_.back().kind == Kind::Change && edits_.back().position == position;
}

void ModelPart::undo() {
    std::for_each(edits_.rbegin(), edits_.rend(), [this](Edit& edit) { swap(edit); });
}

void ModelPart::redo() {
    for (Edit& edit : edits_)
        swap(edit);
}

void ModelPart::swap(Edit& edit) const {
    TRModelStore& store = *store_();
    const bool isThere = edit.kind == Kind::Change || edit.other == nullptr;
    std::unique_ptr<TRMessageRecord> now = isThere ? store.takeAt(edit.position) : nullptr;
    if (edit.other != nullptr)
        store.insertAt(edit.position, std::move(edit.other));
    edit.other = std::move(now);
}

void ModelPart::append(std::unique_ptr<StepPart> later) {
    auto& part = static_cast<ModelPart&>(*later); // parts of one source have one type
    for (Edit& edit : part.edits_)
        record(edit.kind, edit.position, std::move(edit.other));
}

std::string ModelPart::affected() const {
    const auto& messages = store_()->TRMessages();
    for (const Edit& edit : edits_) {
        const bool isThere = edit.kind == Kind::Change || edit.other == nullptr;
        if (isThere && edit.position < messages.size())
            return messages[edit.position]->Name();
    }
    return {};
}

ModelJournal::~ModelJournal() {
    setRecording(false);
}

void ModelJournal::setRecording(bool on) {
    if (TRModelStore* store = store_(); store != nullptr)
        store->setRecorder(on ? this : nullptr);
}

void ModelJournal::beforeChange(std::size_t position, const TRMessageRecord& message) {
    if (!part().isLastChange(position))
        part().record(ModelPart::Kind::Change, position, message.copy());
}

void ModelJournal::afterAdd(std::size_t position) {
    part().record(ModelPart::Kind::Add, position, nullptr);
}

void ModelJournal::afterRemove(std::size_t position, std::unique_ptr<TRMessageRecord> message) {
    part().record(ModelPart::Kind::Remove, position, std::move(message));
}

ModelPart& ModelJournal::part() {
    if (part_ == nullptr)
        part_ = std::make_unique<ModelPart>(store_);
    return *part_;
}

} // namespace zb
