#pragma once

#include "lint/project_check.h"
#include "model/sequences.h"
#include "platform/code_page.h"
#include "platform/finding.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

class NodeTree;
class TRMessageRecord;
class TRModelStore;

/// The findings of a transaction model and its sequences, kept up to date. TR messages of one SECS message
/// are checked together, since the driver chooses among them.
class LiveModel {
public:
    /// What is checked. It must outlive its use.
    struct Subject {
        const NodeTree* tree = nullptr;
        const TRModelStore* model = nullptr; ///< may be null
        const Sequences* sequences = nullptr;
        int projectType = 1; ///< 1 is a host project, 2 an equipment project
    };

    explicit LiveModel(CodePage codePage) : codePage_(std::move(codePage)) {}

    /// Forgets everything and begins anew, with or without the rules of the standards check.
    void restart(const Subject& subject, const CodePage& codePage, bool standard);
    /// A TR message was added, changed, renamed or removed. It is checked as it is at the next `checkNext`.
    void touch(std::string_view trMessage);
    /// A SECS message was changed or removed; the name may be in any case.
    void touchDefinition(std::string_view secsMessage);
    /// Compares the sequences with those that were checked.
    void touchSequences();

    bool isDone() const { return touched_.empty() && queue_.empty() && !checksSequences_; }
    /// How many calls of `checkNext` are left, about: a touched TR message may add one.
    std::size_t stepsLeft() const { return touched_.size() + queue_.size() + (checksSequences_ ? 1 : 0); }
    /// Checks the TR messages of one SECS message, or the sequences. No effect when all is done.
    void checkNext();

    /// Calls `visit` with the findings until it returns false: those of the TR messages in the order of the
    /// model, then those of the sequences. Returns whether all were visited.
    bool visit(const std::function<bool(const Finding& finding)>& visit) const;

    /// Findings have gone and others have come.
    std::function<void(const Findings& gone, const Findings& come)> onChange;

private:
    /// The TR messages of one SECS message.
    struct Group {
        bool isQueued = false;
        int count = 0;
        Findings findings;
        std::vector<const TRMessageRecord*> records; ///< in the order of the model, once they are gathered
    };
    using Groups = std::map<std::string, Group>;

    void takeTouched();
    Groups::iterator queueGroup(const std::string& group);
    void gatherRecords();
    void checkGroup(const std::string& name);
    void checkAllSequences();
    void replace(Findings& findings, Findings fresh) const;

    Subject subject_;
    CodePage codePage_;
    std::optional<StandardCheck> check_; // none without the rules of the standards check
    Groups groups_;                      // by upper-cased SECS message
    std::unordered_map<std::string, Groups::iterator> groupOf_; // by TR message
    std::deque<std::string> touched_;                           // TR messages
    std::deque<std::string> queue_;                             // groups
    bool areRecordsGathered_ = false;
    Sequences sequences_; // as they were checked
    Findings sequenceFindings_;
    bool checksSequences_ = false;
};

} // namespace zb
