#pragma once

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zb {

class frmWorkbench;
class TRMessageRecord;

/// A message that is renamed in the editor keeps its old name in the TR messages that use it. This offers in
/// the strip to rename it there too, as one step of the modeler.
class RenameOffer {
public:
    explicit RenameOffer(frmWorkbench& workbench);

    /// Another project is open: what was renamed before concerns it no more.
    void forget();
    /// The messages may have other names now, as after an undo: an offer that has lost its reason is
    /// withdrawn.
    void review();

private:
    struct Rename {
        std::string from;
        std::string to;
    };
    /// The TR messages by the upper-cased names of their SECS messages.
    using Users = std::unordered_map<std::string, std::vector<const TRMessageRecord*>>;

    void renamed(const std::vector<std::pair<std::string, std::string>>& renames);
    /// Whether the rename is in force, and who has not followed it; empty when it does not.
    std::vector<const TRMessageRecord*> usersOf(const Rename& rename, const Users& users) const;
    Users allUsers() const;
    void offer();
    void renameAll();
    void renameIn(const std::string& message, const std::string& to);

    frmWorkbench& workbench_;
    std::vector<Rename> renames_; // that TR messages have not followed
    bool offered_ = false;
};

} // namespace zb
