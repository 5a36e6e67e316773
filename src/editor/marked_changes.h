#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

class frmSECSEditor;
class Node;
class SECSMessageRecord;

/// Changes of all marked messages or items, each as one step. Without marks it is the selected one that
/// changes.
class MarkedChanges {
public:
    explicit MarkedChanges(frmSECSEditor& window) : window_(window) {}

    enum class Flag { Wait, Reply, NoLogging };

    /// Messages alone. `direction` is "H->E", "H<-E" or "H<->E".
    void setDirection(std::string_view direction);
    /// Messages alone. Replies have no Wait and no Auto Reply, and stay as they are.
    void setFlag(Flag flag, bool on);

    /// What a rename by the pattern makes.
    struct Renamed {
        Node* node;
        std::string oldName;
        std::string newName;
        std::string refusal; ///< why the name cannot be given; empty when it can
    };
    std::vector<Renamed> preview(std::string_view pattern) const;
    /// Renames all, or none when one of them is refused; what it says is for the user, and empty when all
    /// are renamed.
    std::string rename(std::string_view pattern);

    /// The marked messages or items, or the selected one.
    std::vector<Node*> targets() const;

private:
    /// False when it does not apply to the message.
    using Change = std::function<bool(const SECSMessageRecord& record, std::string& text)>;
    void changeMessages(const std::string& step, const Change& change);
    void checkMessages(std::vector<Renamed>& names) const;
    void checkItems(std::vector<Renamed>& names) const;
    void renameMessages(const std::vector<Renamed>& names);
    static void renameItem(Node& item, const Renamed& name);
    void showAgain();

    frmSECSEditor& window_;
};

} // namespace zb
