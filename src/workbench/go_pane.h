#pragma once

#include "controls/list.h"
#include "controls/text_field.h"
#include "workbench/destination.h"
#include "workbench/name_index.h"
#include "workbench/workbench_pane.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zb {

/// Finds a message, an item or a TR message by a part of its name, while it is typed, and goes there.
class GoPane final : public WorkbenchPane {
public:
    explicit GoPane(frmWorkbench& workbench);

    /// The project may have other names now; they are read when the next one is looked for.
    void projectChanged() { isOld_ = true; }

    TextField txtGo{window(), "txtGo", &pane};
    Label lblGo{window(), "lblGo", {}, &pane};
    List lvwGo{window(), "lvwGo", &pane};

private:
    void addKey();
    void opened() override;
    void key(KeyEvent key);
    void readNames();
    void readMessages();
    void readTRMessages();
    void list();
    void addRow(const NameIndex::Entry& entry);
    void move(int rows);
    /// False when the chosen row is not among the new ones.
    bool listAgain(const std::vector<std::string>& chosen);
    void go();
    Destination destinationOf(const NameIndex::Entry& entry) const;

    NameIndex names_;
    std::vector<std::size_t> listed_; // numbers of entries, one for each row
    bool isOld_ = true;
};

} // namespace zb
