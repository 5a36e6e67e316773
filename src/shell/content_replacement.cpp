#include "shell/content_replacement.h"

#include "compare/alignment.h"
#include "controls/desktop.h"
#include "model/model_writer.h"
#include "project/project_text.h"
#include "shell/application.h"
#include "shell/tree_replacement.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zb {

namespace {

constexpr const char* kAlong = "joint step";

/// Entries that are the same at both ends stay.
void replaceEntries(Combo& combo, const std::vector<std::string>& wanted) {
    const auto& entries = combo.entries();
    const std::size_t shorter = std::min(entries.size(), wanted.size());
    std::size_t head = 0;
    while (head < shorter && entries[head] == wanted[head])
        ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && entries[entries.size() - 1 - tail] == wanted[wanted.size() - 1 - tail])
        ++tail;
    std::vector<std::size_t> gone;
    for (std::size_t at = head; at < entries.size() - tail; ++at)
        gone.push_back(at);
    combo.eraseAll(gone);
    std::vector<Combo::Entry> come;
    for (std::size_t at = head; at < wanted.size() - tail; ++at)
        come.emplace_back(at, wanted[at]);
    combo.insertAll(std::move(come));
    if (!combo.contains(combo.text()))
        combo.setText("");
}

/// Equal numbers for messages that a project file would hold in the same words.
class MessageNumbers {
public:
    std::vector<std::uint64_t> of(const TRModelStore& model) {
        std::vector<std::uint64_t> numbers;
        for (const auto& message : model.TRMessages())
            numbers.push_back(
                numbers_.emplace(composeTRMessage(*message), numbers_.size() + 1).first->second);
        return numbers;
    }

private:
    std::unordered_map<std::string, std::uint64_t> numbers_;
};

} // namespace

ContentReplacement::ContentReplacement(Application& application)
    : app_(application), frame_([this](ProjectFrame frame) {
          ProjectFrame before{app_.ProjectType, std::move(app_.foreign)};
          app_.foreign = std::move(frame.foreign);
          app_.takeProjectType(frame.type);
          app_.frmMain.updateProjectPanels();
          return before;
      }) {
    app_.modelerHistory.steps.add(frame_);
    app_.desktop.steps().onJointMoved = [this](const UndoHistory::Step& step, UndoHistory::Way way,
                                               std::size_t others) {
        stepMoved(step.name, way == UndoHistory::Way::Undone, others);
    };
}

Project ContentReplacement::content() const {
    return parseProject(app_.work.composeWork());
}

void ContentReplacement::replace(Project content, const std::string& step) {
    const UserSteps::Part part(app_.desktop.steps(), step, {}, UserSteps::Reach::AllDocuments);
    app_.frmTRMessage.hide();
    app_.frmTRItem.hide();
    replaceMessages(content.messages);
    frame_.change({projectTypeOf(content.side), std::move(content.foreign)});
    replaceModel(*content.model);
    app_.frmTRModeler.followModel();
    app_.frmTRModeler.sequenceView().change(content.sequences);
    followInModeler();
}

void ContentReplacement::replaceMessages(const ProjectMessages& messages) {
    frmSECSEditor& editor = app_.frmSECSEditor;
    const MessageTree wanted = messages.tree();
    replaceNodes(editor.liveTree(), *wanted.nodes);
    replaceEntries(editor.cboSECSMessage, wanted.names);
    editor.treeInteraction.showAgain(editor.liveTree().selected());
}

void ContentReplacement::replaceModel(TRModelStore& model) {
    TRModelStore& store = *app_.TRModelStore;
    MessageNumbers numbers;
    const auto pairs = alignEqual(numbers.of(store), numbers.of(model));
    std::vector<bool> stays(store.TRMessages().size(), false);
    std::vector<bool> isThere(model.TRMessages().size(), false);
    for (const auto& [before, after] : pairs)
        stays[before] = isThere[after] = true;
    for (std::size_t at = stays.size(); at > 0; --at) {
        if (!stays[at - 1])
            store.deleteAt(at - 1);
    }
    for (std::size_t at = 0; at < isThere.size(); ++at) {
        if (!isThere[at])
            store.addAt(at, model.TRMessages()[at]->copy());
    }
}

void ContentReplacement::followInModeler() {
    if (app_.desktop.frontDocument(app_.frmMain) != &app_.frmTRModeler)
        return;
    app_.SECSMessageStore = std::make_unique<zb::SECSMessageStore>();
    SmdWriter(app_.codePage)
        .buildMessageText(WalkMode::SaveProject, app_.frmSECSEditor.liveTree(), *app_.SECSMessageStore);
}

void ContentReplacement::stepMoved(const std::string& name, bool undone, std::size_t others) {
    followInModeler();
    if (undone)
        app_.versions.stepUndone(name);
    if (others == 0)
        return;
    const std::string steps = others == 1 ? "1 step" : std::to_string(others) + " steps";
    app_.desktop.post(
        {(undone ? "Undone: " : "Redone: ") + name + ", and with it " + steps + " of the other window",
         {},
         kAlong});
}

} // namespace zb
