#pragma once

#include "controls/list.h"
#include "controls/simple_controls.h"
#include "platform/code_page.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zb {

class Window;

namespace rehearsal {
class Timeline;
struct Interpretation;
struct SequenceProgress;
} // namespace rehearsal

/// What a driver makes of one message of a recording: its findings, its items beside the definition, the
/// conditions with their values, the values of the TR items, and its sequence.
class RehearsalDetails {
public:
    /// The stores become part of the window.
    explicit RehearsalDetails(Window& window);

    /// Nothing clears all.
    void show(const rehearsal::Timeline& timeline, std::optional<std::size_t> message,
              const CodePage& codePage);

    /// The message that the selected row of the sequence was taken by, from 0.
    std::optional<std::size_t> messageOfStep() const;
    /// The TR message of the selected condition; empty for none.
    std::string transactionOfCondition() const;

    Label lblFindings;
    List lvwFindings;
    Label lblItems;
    List lvwItems;
    Label lblConditions;
    List lvwConditions;
    Label lblValues;
    List lvwValues;
    Label lblSequence;
    List lvwSequence;

private:
    void clear();
    void showFindings(const rehearsal::Timeline& timeline, std::size_t message);
    void showItems(const rehearsal::Timeline& timeline, std::size_t message,
                   const rehearsal::Interpretation& result, const CodePage& codePage);
    void showConditions(const rehearsal::Interpretation& result);
    void showValues(const rehearsal::Interpretation& result);
    void showSequence(const rehearsal::Timeline& timeline, std::size_t message);

    std::vector<std::string> conditionOwners_;             // of the rows
    std::vector<std::optional<std::size_t>> stepMessages_; // of the rows
};

} // namespace zb
