#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zb {

class frmSECSEditor;
class Node;
class SECSMessageRecord;
class TextField;

/// The message pane: adds messages to the tree, changes the selected one, and finds one by name. Its fields
/// keep what was typed until InitMsg clears them or a click on a node fills them.
class MessagePane {
public:
    explicit MessagePane(frmSECSEditor& window);

    /// Clears the fields, unchecks and enables all check boxes, and turns optHost on.
    void InitMsg();
    /// Shows direction, wait and auto reply of a message.
    void display(const SECSMessageRecord& record);

    void InsertCbo(std::string_view name);
    /// Removes the first entry with this text.
    void removeCbo(std::string_view name);
    /// Removes an entry for each of these names.
    void removeNames(const std::vector<std::string>& names);
    /// Shows the first entry and selects its message, when there is more than one.
    void cboFirstSelect();
    /// Shows the entry with this text and selects its message.
    void cboSelectWithKey(std::string_view name);

    /// Writes the fields into the message whose MessageNode has this index. A name in use is refused with a
    /// box.
    void applyMessageChange(int index);

    /// The commands of the two buttons. False when the fields are refused, after a box.
    /// @{
    bool add();
    bool change();
    /// @}

    /// The old name of a message, and the new one.
    using Rename = std::pair<std::string, std::string>;
    /// The user has given messages other names.
    std::function<void(const std::vector<Rename>& renames)> onRenamed;

private:
    enum class Word { Stream, Function };

    void wireFields();
    void addReply();
    bool applyFields(int index);
    void chooseMessage();
    void numberChanged(Word word);
    void enableByFunction();

    /// Shows a box and moves the focus for the first invalid one of stream and function; false when both are
    /// valid.
    bool refuseNumbers(std::string_view article);
    bool refuseNameOfAdd();
    /// The old number of a MessageNode, without its letter.
    static std::string oldNumber(const Node& messageNode, Word word);
    void restoreBadNumber(const Node& messageNode, Word word);
    TextField& field(Word word);
    /// Turns optBoth on when no direction is chosen.
    void needDirection();
    std::string nodeText();
    void append(const std::string& name, std::string text, std::string description);

    frmSECSEditor& window_;
};

} // namespace zb
