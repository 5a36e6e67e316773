#include "controls/combo_journal.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace zb {

class ComboJournal::Part final : public StepPart {
public:
    explicit Part(Combo& combo) : combo_(combo) {}

    /// An entry was inserted, or erased when its text is given.
    void record(std::size_t position, std::optional<std::string> erased) {
        bytes_ += sizeof(Edit) + (erased ? erased->capacity() : 0);
        edits_.push_back({position, std::move(erased)});
    }
    void setText(std::string before) { text_ = std::move(before); }

    void undo() override {
        std::for_each(edits_.rbegin(), edits_.rend(), [this](Edit& edit) { swap(edit); });
        swapText();
    }
    void redo() override {
        for (Edit& edit : edits_)
            swap(edit);
        swapText();
    }
    bool changesDocument() const override { return !edits_.empty(); }
    std::size_t bytes() const override { return bytes_; }
    void append(std::unique_ptr<StepPart> later) override {
        auto& part = static_cast<Part&>(*later); // parts of one source have one type
        for (Edit& edit : part.edits_)
            record(edit.position, std::move(edit.entry));
        if (!text_)
            text_ = std::move(part.text_);
    }

private:
    struct Edit {
        std::size_t position;
        std::optional<std::string> entry; ///< the entry while it is not in the combo
    };

    void swap(Edit& edit) {
        if (edit.entry) {
            combo_.insertAt(edit.position, std::move(*edit.entry));
            edit.entry.reset();
        } else {
            edit.entry = combo_.eraseAt(edit.position);
        }
    }
    void swapText() {
        if (!text_)
            return;
        std::string now = combo_.text();
        combo_.setText(*text_);
        text_ = std::move(now);
    }

    Combo& combo_;
    std::vector<Edit> edits_;
    std::optional<std::string> text_;
    std::size_t bytes_ = sizeof(Part);
};

ComboJournal::ComboJournal(Combo& combo) : combo_(combo) {}

ComboJournal::~ComboJournal() {
    combo_.setRecorder(nullptr);
}

std::unique_ptr<StepPart> ComboJournal::take() {
    if (combo_.text() != textBefore_)
        part().setText(std::exchange(textBefore_, combo_.text()));
    return std::move(part_);
}

void ComboJournal::drop() noexcept {
    part_.reset();
}

void ComboJournal::setRecording(bool on) {
    combo_.setRecorder(on ? this : nullptr);
    textBefore_ = combo_.text();
}

void ComboJournal::afterInsert(std::size_t position) {
    part().record(position, std::nullopt);
}

void ComboJournal::afterErase(std::size_t position, std::string entry) {
    part().record(position, std::move(entry));
}

ComboJournal::Part& ComboJournal::part() {
    if (part_ == nullptr)
        part_ = std::make_unique<Part>(combo_);
    return *part_;
}

} // namespace zb
