#pragma once

#include <string_view>

namespace zb {

class SECSMessageRecord;

/// What readers and writers of definitions ask of the window that shows the message tree. The window's own
/// names are kept, so that a reader finds the same operation under the same name in both rooms.
class EditorPane {
public:
    virtual ~EditorPane() = default;
    /// Adds a message name to the list of names.
    virtual void InsertCbo(std::string_view name) = 0;
    /// Gives every node of the live tree the ordinary text colour.
    virtual void TreeView_ForeColor() = 0;
    /// Clears the message pane.
    virtual void InitMsg() = 0;
    /// Shows direction, wait and auto reply of a message.
    virtual void display_DefSECSMsg(const SECSMessageRecord& record) = 0;
    virtual void hideItemPane() = 0;
};

/// A pane that nobody looks at, for work on a tree without a window.
class NoEditorPane final : public EditorPane {
public:
    void InsertCbo(std::string_view /*name*/) override {}
    void TreeView_ForeColor() override {}
    void InitMsg() override {}
    void display_DefSECSMsg(const SECSMessageRecord& /*record*/) override {}
    void hideItemPane() override {}
};

} // namespace zb
