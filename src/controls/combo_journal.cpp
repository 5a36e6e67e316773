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
        for (auto end = edits_.end(); end != edits_.begin();) {
            auto begin = std::prev(end);
            while (begin != edits_.begin() && isRun(*std::prev(begin), *begin, isOut(*begin)))
                --begin;
            apply(begin, end, isOut(*begin));
            end = begin;
        }
        swapText();
    }
    void redo() override {
        for (auto begin = edits_.begin(); begin != edits_.end();) {
            auto end = std::next(begin);
            while (end != edits_.end() && isRun(*std::prev(end), *end, !isOut(*begin)))
                ++end;
            apply(begin, end, !isOut(*begin));
            begin = end;
        }
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

    using Edits = std::vector<Edit>;

    static bool isOut(const Edit& edit) { return edit.entry.has_value(); }
    /// Whether the edit can be undone or redone together with the one before it: one pass through the entries
    /// is enough for a run of them, whose entries are all in the combo or all out of it.
    /// @param wereErased that the step has erased the entries, and not inserted them
    static bool isRun(const Edit& before, const Edit& edit, bool wereErased) {
        return isOut(before) == isOut(edit) &&
               (wereErased ? before.position <= edit.position : before.position < edit.position);
    }

    void apply(Edits::iterator begin, Edits::iterator end, bool wereErased) {
        // Each erased entry was where the erased ones before it were, too.
        std::size_t before = 0;
        if (!isOut(*begin)) {
            std::vector<std::size_t> positions;
            for (auto edit = begin; edit != end; ++edit)
                positions.push_back(edit->position + (wereErased ? before++ : 0));
            std::vector<std::string> erased = combo_.eraseAll(positions);
            for (std::size_t at = 0; begin != end; ++begin, ++at)
                begin->entry = std::move(erased[at]);
            return;
        }
        std::vector<Combo::Entry> entries;
        for (; begin != end; ++begin)
            entries.emplace_back(begin->position + (wereErased ? before++ : 0),
                                 std::move(*std::exchange(begin->entry, std::nullopt)));
        combo_.insertAll(std::move(entries));
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
