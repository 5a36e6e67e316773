#pragma once

#include "controls/control.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zb {

/// Receives each change of the entries of a combo.
class ComboRecorder {
public:
    virtual ~ComboRecorder() = default;
    virtual void afterInsert(std::size_t position) = 0;
    virtual void afterErase(std::size_t position, std::string entry) = 0;
};

/// A combo: a text and a list of entries to choose it from, in order of insertion.
class Combo : public Control {
public:
    Combo(Window& window, std::string name, Control* pane = nullptr)
        : Control(Kind::Combo, window, std::move(name), pane) {}

    const std::string& text() const { return text_; }
    /// Sets the shown text; no choice is reported.
    void setText(std::string_view text);

    const std::vector<std::string>& entries() const { return entries_; }
    void add(std::string entry);
    /// Positions start at 0; a position past the end changes nothing. A combo that shows the removed entry
    /// shows nothing afterwards.
    void removeAt(std::size_t position);
    /// Removes the first entry that equals each of the texts, in the same way.
    void removeAll(const std::vector<std::string>& texts);
    /// Removes all entries and the text.
    void clear();
    bool contains(std::string_view entry) const;

    /// Receives what changes; null for nobody.
    void setRecorder(ComboRecorder* recorder) { recorder_ = recorder; }
    /// Inserts an entry, or removes one without an effect on the shown text.
    /// @{
    void insertAt(std::size_t position, std::string entry);
    std::string eraseAt(std::size_t position);
    /// @}
    /// The same for many entries in one pass. The positions ascend, and are those in the list that holds all
    /// of these entries.
    /// @{
    using Entry = std::pair<std::size_t, std::string>;
    void insertAll(std::vector<Entry> added);
    std::vector<std::string> eraseAll(const std::vector<std::size_t>& positions);
    /// @}

    /// Whether the arrow keys choose the next entry. Otherwise the combo can only be chosen from.
    enum class Keys { Choose, Ignored };
    void setKeys(Keys keys) { keys_ = keys; }
    Keys keys() const { return keys_; }

    /// The user's choice: shows the entry and reports the choice, even when the entry is already shown.
    void choose(std::size_t position);

    std::function<void()> onChoose;

    /// What the open list shows after an entry, paler; the entry itself stays as it is.
    std::function<std::string(const std::string& entry)> noteOf;

private:
    std::string text_;
    std::vector<std::string> entries_;
    Keys keys_ = Keys::Choose;
    ComboRecorder* recorder_ = nullptr;
};

/// The field of a folder browser: contains the path of a folder.
class FolderField : public Control {
public:
    FolderField(Window& window, std::string name, Control* pane = nullptr)
        : Control(Kind::FolderField, window, std::move(name), pane) {}

    const std::string& text() const { return text_; }
    /// Runs the change handler at once when the folder differs.
    void setText(std::string_view folder);

    std::function<void()> onChange;

private:
    std::string text_;
};

} // namespace zb
