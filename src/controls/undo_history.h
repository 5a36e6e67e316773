#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zb {

/// What one step of the user changed in one store of a document.
class StepPart {
public:
    virtual ~StepPart() = default;
    /// Puts back what was there before the step, or after it. Called in turns, beginning with `undo`, and
    /// always with the store as the other one left it, except for looks.
    /// @{
    virtual void undo() = 0;
    virtual void redo() = 0;
    /// @}
    /// False when only looks changed: colours, expansion, the shown entry.
    virtual bool changesDocument() const = 0;
    /// The memory that it keeps; an undo or redo does not change it.
    virtual std::size_t bytes() const = 0;
    /// Takes over what a later part of the same store has changed.
    virtual void append(std::unique_ptr<StepPart> later) = 0;
};

/// Records the changes of one store of a document.
class StepSource {
public:
    virtual ~StepSource() = default;
    /// Whether anything has changed since the last call of `take`.
    virtual bool hasChanged() const = 0;
    /// What has changed since the last call; null for nothing.
    virtual std::unique_ptr<StepPart> take() = 0;
    /// Forgets it.
    virtual void drop() noexcept = 0;
    /// While it is off, changes are not recorded.
    virtual void setRecording(bool on) = 0;
};

/// A place that the user types into: a field, and what it belongs to. What is typed there in one go is one
/// step. The default is no such place.
struct TypingPlace {
    const void* field = nullptr;
    const void* node = nullptr;

    explicit operator bool() const { return field != nullptr; }
    friend bool operator==(const TypingPlace&, const TypingPlace&) = default;
};

/// The number of a step that is one step of several documents, and is undone and redone in all of them.
using JointStep = std::uint64_t;
inline constexpr JointStep kNotJoint = 0;

/// The undoable steps of one document. A step is what its stores changed during one action of the user. The
/// history drops its oldest steps when it has too many or keeps too much memory.
class UndoHistory {
public:
    static constexpr std::size_t kMostSteps = 1000;
    static constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;

    struct Step {
        std::string name; ///< "Delete S5F2"
        TypingPlace place;
        std::vector<std::unique_ptr<StepPart>> parts; ///< one for each source, null where nothing changed
        JointStep joint = kNotJoint;
    };
    enum class Way { Undone, Redone };

    explicit UndoHistory(std::size_t mostSteps = kMostSteps, std::size_t mostBytes = kMostBytes)
        : mostSteps_(mostSteps), mostBytes_(mostBytes) {}
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    /// All sources are added before the first step. They must outlive the history's use.
    void add(StepSource& source) { sources_.push_back(&source); }

    /// Makes a step of what the sources recorded. Typing continues the last step when that was made at the
    /// same place. Without a change there is no step, and changed looks go with the last one. A joint step is
    /// one in any case.
    void closeStep(const std::string& name, TypingPlace place = {}, JointStep joint = kNotJoint);
    /// Whether there is anything to make a step of.
    bool hasChanged() const;
    /// The next typing begins a step of its own.
    void endTyping();
    /// Whether typing at the place continues the last step.
    bool isTypingAt(TypingPlace place) const;

    bool canUndo() const { return !undone_.empty(); }
    bool canRedo() const { return !redone_.empty(); }
    /// The name of the step that would be undone or redone next; empty for none.
    /// @{
    std::string undoName() const { return undone_.empty() ? std::string() : undone_.back().name; }
    std::string redoName() const { return redone_.empty() ? std::string() : redone_.back().name; }
    /// @}
    /// Nothing happens when there is no such step, or during another undo or redo.
    /// @{
    void undo() { move(Way::Undone); }
    void redo() { move(Way::Redone); }
    /// @}
    /// Undoes or redoes up to and including the joint step, if it can be; returns how many other steps went
    /// that way. Nothing happens during another undo or redo.
    std::size_t moveTo(JointStep joint, Way way);
    bool isMoving() const { return moving_; }
    /// Another document has forgotten its part of the joint step: forgets this part too, with all steps that
    /// can be reached only through it.
    void forgetJoint(JointStep joint);

    /// Forgets all steps and records from now on; the document counts as saved.
    void clear();
    /// Forgets all steps and records nothing until `clear` is called.
    void stop();
    /// There is no memory for another step: forgets all of them, without any need of memory. The document
    /// counts as changed.
    void giveUp() noexcept;
    /// The document is in its file as it is now, after the step that is being made.
    void markSaved();
    /// The document differs from its file whatever is undone.
    void markUnsaved();
    bool isSaved() const { return saved_ == undone_.size(); }

    /// The number of steps that can be undone, and the memory that all steps keep.
    /// @{
    std::size_t count() const { return undone_.size(); }
    std::size_t bytes() const { return bytes_; }
    /// @}

    /// Shows the user what a step has changed, after it was undone or redone.
    std::function<void(const Step& step, Way way)> onMoved;
    /// An undo or redo begins: what has changed so far must become steps, in all documents.
    std::function<void()> beforeMove;
    /// A joint step was undone or redone here: its other documents must follow.
    std::function<void(const Step& step, Way way)> onJointMoved;
    /// A joint step can be neither undone nor redone here any more.
    std::function<void(JointStep joint)> onJointForgotten;
    /// Called whenever names, possibilities or `isSaved` may have changed.
    void addListener(std::function<void()> listener) { listeners_.push_back(std::move(listener)); }

private:
    class Recording;

    Step takeStep(const std::string& name, TypingPlace place, JointStep joint);
    void push(Step step);
    void append(Step& to, Step from);
    static bool changesDocument(const Step& step);
    void dropRedone(std::size_t count);
    void dropOldest();
    void dropUndone(std::size_t count);
    void forgotten(const std::vector<JointStep>& joints) const;
    void move(Way way);
    static void apply(const Step& step, Way way);
    void forget() noexcept;
    void setRecording(bool on);
    void tell() const;

    std::size_t mostSteps_;
    std::size_t mostBytes_;
    std::vector<StepSource*> sources_;
    std::deque<Step> undone_;              // to undo, the next one last
    std::deque<Step> redone_;              // to redo, the next one last
    std::optional<std::size_t> saved_ = 0; // how many steps there were at the last save
    std::size_t bytes_ = 0;
    bool moving_ = false;
    std::vector<std::function<void()>> listeners_;
};

} // namespace zb
