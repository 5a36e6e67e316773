#pragma once

#include "controls/combo.h"
#include "controls/undo_history.h"

#include <memory>
#include <string>
#include <vector>

namespace zb {

/// Records what changes in a combo: its entries, and the text that it shows.
class ComboJournal final : public StepSource, private ComboRecorder {
public:
    explicit ComboJournal(Combo& combo);
    ~ComboJournal() override;
    ComboJournal(const ComboJournal&) = delete;
    ComboJournal& operator=(const ComboJournal&) = delete;

    bool hasChanged() const override { return part_ != nullptr || combo_.text() != textBefore_; }
    std::unique_ptr<StepPart> take() override;
    void drop() noexcept override;
    void setRecording(bool on) override;

private:
    class Part;

    void afterInsert(std::size_t position) override;
    void afterErase(std::size_t position, std::string entry) override;
    Part& part();

    Combo& combo_;
    std::unique_ptr<Part> part_; // what has changed since the last step
    std::string textBefore_;
};

} // namespace zb
