#include "editor/frm_find.h"

#include "controls/desktop.h"
#include "platform/text.h"
#include "platform/tree/node_tree.h"

#include <utility>

namespace zb {

frmFind::frmFind(Desktop& desktop, LiveTree liveTree)
    : Window(desktop, "frmFind"), liveTree_(std::move(liveTree)) {
    setCaption("Find");
    setCancelButton(cmdCancel);
    setDefaultButton(cmdFindNext);
    txtFindWhat.setAnswersEnter();
    txtFindWhat.onChange = [this] {
        cmdFindNext.setEnabled(!isBlank(txtFindWhat.text()));
        takeOrigin();
    };
    // Enter searches even while the button is disabled: an empty text moves on by one node.
    txtFindWhat.onKeyDown = [this](KeyEvent key) {
        if (key.code == kKeyEnter)
            findNext();
        else if (key.code == kKeyUp || key.code == kKeyDown)
            showTerm(key.code == kKeyUp);
    };
    txtFindWhat.setToolTip("Up and Down: earlier searches");
    cmdFindNext.onClick = [this] { findNext(); };
    cmdCancel.onClick = [this] { closeByFrame(); };
    load();
}

void frmFind::load() {
    txtFindWhat.setText("");
    txtFindWhat.setLocked(false);
    chkCaps.setChecked(false);
    optAll.setOn(true);
    cmdFindNext.setEnabled(false);
    setFirstFocus(txtFindWhat);
    origin_ = 1;
    walk_.restart();
}

void frmFind::showFind() {
    if (!visible())
        load();
    show();
}

void frmFind::closeByFrame() {
    hide();
    load();
}

void frmFind::takeOrigin() {
    origin_ = selectedPosition();
}

void frmFind::showTerm(bool earlier) {
    if (terms_ != nullptr)
        txtFindWhat.setText(walk_.step(*terms_, earlier, txtFindWhat.text()));
}

int frmFind::selectedPosition() {
    const Node* selected = liveTree_().selected();
    return selected == nullptr ? 1 : selected->index();
}

FindDirection frmFind::direction() const {
    if (optUp.on())
        return FindDirection::Up;
    return optDown.on() ? FindDirection::Down : FindDirection::All;
}

void frmFind::findNext() {
    FindRequest request{txtFindWhat.text(), chkCaps.checked() ? FindCase::Exact : FindCase::Ignored,
                        direction(), origin_};
    search(request);
    origin_ = request.origin;
    if (request.what.empty())
        return;
    last_ = request;
    walk_.restart();
    if (terms_ != nullptr)
        terms_->remember(request.what);
}

void frmFind::findAgain() {
    if (visible())
        findNext();
    else if (last_)
        search(*last_);
    else
        showFind();
}

void frmFind::search(FindRequest& request) {
    NodeTree& tree = liveTree_();
    const FindResult result = zb::findNext(tree, request);
    if (result.outcome == FindOutcome::Found)
        tree.select(result.node);
    if (result.outcome != FindOutcome::EndOfFile)
        return;
    desktop().showBox("End of file");
    if (request.direction == FindDirection::All)
        request.origin = selectedPosition();
}

} // namespace zb
