#pragma once

#include "controls/combo.h"
#include "controls/list.h"
#include "controls/text_field.h"
#include "editor/find_terms.h"
#include "workbench/modeler_more.h"
#include "workbench/uses.h"
#include "workbench/workbench_pane.h"

#include <string>

namespace zb {

/// Lists every node of the messages with a text, by the wildcards of the Find window, or every place where
/// the selected message, item or TR message is used.
class SearchPane final : public WorkbenchPane {
public:
    explicit SearchPane(frmWorkbench& workbench);

    TextField txtSearch{window(), "txtSearch", &pane};
    Combo cboSearchTerms{window(), "cboSearchTerms", &pane};
    CheckBox chkSearchCaps{window(), "chkSearchCaps", "Case Sensitive", &pane};
    Button cmdSearchAll{window(), "cmdSearchAll", "&All", &pane};
    Button cmdWhereUsed{window(), "cmdWhereUsed", "Where &used", &pane};
    Label lblSearch{window(), "lblSearch", {}, &pane};
    List lvwSearch{window(), "lvwSearch", &pane};

    FindTerms terms;

    /// Lists the uses of what is selected in the document in front, in the opened pane.
    void whereUsed();
    /// The same of a place in the modeler.
    void whereUsed(ModelerMore::UsesOf what);
    /// The listed places are of another project.
    void forget() { say({}); }

private:
    void opened() override;
    void key(KeyEvent key);
    void showTerms();
    void searchAll();
    void whereUsedInEditor();
    void whereUsedInModeler();
    void showUsesOfMessage(const std::string& name);
    void showUsesOfTRMessage(const std::string& name);
    void show(FoundPlaces places, const std::string& thing, const std::string& of);
    /// The first ones of so many.
    void showFirst(FoundPlaces places, std::size_t all, const std::string& thing, const std::string& of);
    /// Without any places.
    void say(const std::string& text);
    void go();

    FoundPlaces places_; // of the rows
    TermWalk walk_;
};

} // namespace zb
