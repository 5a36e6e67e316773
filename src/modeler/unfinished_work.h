#pragma once

#include "modeler/dialog_contents.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zb {

class Control;
class Window;

/// Keeps what a dialog loses when it hides because the user turned elsewhere, or when it shows another
/// record: a notice offers to bring the unfinished contents back.
class UnfinishedWork {
public:
    struct Dialog {
        /// Not part of the contents, such as a check box about the dialog itself.
        std::vector<const Control*> leftOut;
        /// Fields that the dialog fills by itself: a change of them alone is no work.
        std::vector<const Control*> filledIn;
        /// Whether the user has typed into one of these. May be empty.
        std::function<bool()> isTypedIn = {};
        /// What the dialog is about, such as "TR message Start".
        std::function<std::string()> subject;
        /// Keeps what the dialog knows beside its controls, and returns what brings that back.
        std::function<std::function<void()>()> keepState;
    };
    UnfinishedWork(Window& window, Dialog dialog) : window_(window), dialog_(std::move(dialog)) {}
    UnfinishedWork(const UnfinishedWork&) = delete;
    UnfinishedWork& operator=(const UnfinishedWork&) = delete;

    /// The dialog now shows a record, or is empty for a new one.
    void begin();
    /// The contents are in the model: there is nothing to keep, and what was kept of the subject is old.
    void finish();
    /// The contents are about to go. Nothing happens when the user has not changed them, or when the dialog
    /// is hidden.
    void putAside();
    /// Nothing of it can be brought back any more: another project is open.
    void forget();

private:
    struct Kept {
        DialogContents begun;
        DialogContents contents;
        std::function<void()> restoreState;
    };

    DialogContents contents() const { return {window_, dialog_.leftOut}; }
    std::string topicOf(const std::string& subject) const;
    void bringBack(const Kept& kept);

    Window& window_;
    Dialog dialog_;
    std::optional<DialogContents> begun_; ///< as the dialog opened; nothing when there is no work in it
    std::vector<std::string> topics_;     ///< of the notices
};

} // namespace zb
