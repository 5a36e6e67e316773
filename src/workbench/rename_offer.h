#pragma once

#include <string>
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

    void renamed(const std::string& from, const std::string& to);
    bool isCurrent(const Rename& rename) const;
    std::vector<const TRMessageRecord*> usersOf(const std::string& name) const;
    void offer();
    void renameAll();
    void renameIn(const std::string& message, const std::string& to);

    frmWorkbench& workbench_;
    std::vector<Rename> renames_; // that TR messages have not followed
    bool offered_ = false;
};

} // namespace zb
