#pragma once

#include "controls/notices.h"
#include "controls/screen.h"
#include "platform/finding.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

class frmSECSEditor;
class SECSMessageRecord;

/// The clipboard that all programs share. Copying in the tree puts SML there for other programs, and for
/// another instance of this one the nodes themselves. Pasting takes those nodes, SML, or a list of messages
/// by stream and function.
class SharedNodes {
public:
    /// Puts there whatever is copied in the tree from now on.
    explicit SharedNodes(frmSECSEditor& window);

    /// Puts what a copy would take there as bare SML, for simulators with strict readers. What was copied for
    /// the editor stays.
    void copyBare();
    /// Adds what is on the clipboard after the selected message or item, or at the end. A notice says how
    /// much was read.
    void paste();
    /// Whether something else has been copied, here or in another program, since the last copy in the tree.
    bool isCopyOutdated() const;
    /// Adds the messages of a text, which is SML or a list such as "S1F1, S1F2", in the same way.
    void pasteText(std::string_view text);

    /// What was found in the text that was pasted last. Places have `kPastedText` as their message.
    std::function<void(const Findings& findings)> onFindings;
    /// The user wants to see them.
    std::function<void()> onShow;
    static constexpr const char* kPastedText = "pasted text";

private:
    void put(SharedClipboard contents);
    void pasteNodes(std::string_view nodes);
    void pasteList(const std::vector<std::string>& names);
    /// Adds the messages at the end, each unless its name is taken, and returns how many were added.
    std::size_t add(const std::vector<const SECSMessageRecord*>& records);
    void report(std::size_t added, std::size_t left, const std::string& fault,
                std::vector<NoticeAction> actions = {});

    frmSECSEditor& window_;
    SharedClipboard own_; ///< what was put there last
};

} // namespace zb
