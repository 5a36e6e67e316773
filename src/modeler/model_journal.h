#pragma once

#include "controls/undo_history.h"
#include "model/tr_model_store.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zb {

/// What one step changed in the transaction model: the messages as they were before, or after it while it is
/// undone.
class ModelPart final : public StepPart {
public:
    using Store = std::function<TRModelStore*()>;
    explicit ModelPart(Store store) : store_(std::move(store)) {}

    enum class Kind { Change, Add, Remove };
    /// `other` is the record on the other side of a change or removal; null for an added one.
    void record(Kind kind, std::size_t position, std::unique_ptr<TRMessageRecord> other);
    bool isLastChange(std::size_t position) const;

    void undo() override;
    void redo() override;
    bool changesDocument() const override { return true; }
    std::size_t bytes() const override { return bytes_; }
    void append(std::unique_ptr<StepPart> later) override;

    /// The name of a message that was changed and is in the model now; empty for none.
    std::string affected() const;

private:
    struct Edit {
        Kind kind;
        std::size_t position;
        std::unique_ptr<TRMessageRecord> other;
    };
    void swap(Edit& edit) const;

    Store store_;
    std::vector<Edit> edits_;
    std::size_t bytes_ = sizeof(ModelPart);
};

/// Records what changes in the transaction model.
class ModelJournal final : public StepSource, private TRModelRecorder {
public:
    /// The store may be replaced while nothing is recorded.
    explicit ModelJournal(ModelPart::Store store) : store_(std::move(store)) {}
    ~ModelJournal() override;
    ModelJournal(const ModelJournal&) = delete;
    ModelJournal& operator=(const ModelJournal&) = delete;

    bool hasChanged() const override { return part_ != nullptr; }
    std::unique_ptr<StepPart> take() override { return std::move(part_); }
    void drop() noexcept override { part_.reset(); }
    void setRecording(bool on) override;

private:
    void beforeChange(std::size_t position, const TRMessageRecord& message) override;
    void afterAdd(std::size_t position) override;
    void afterRemove(std::size_t position, std::unique_ptr<TRMessageRecord> message) override;
    ModelPart& part();

    ModelPart::Store store_;
    std::unique_ptr<ModelPart> part_; // what has changed since the last step
};

} // namespace zb
